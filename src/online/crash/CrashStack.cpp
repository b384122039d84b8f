#include "online/crash/CrashStack.h"

#include <backtrace.h>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <link.h>
#include <memory>

namespace {

/// What the library says of an address; null and 0 for what it does not know. The texts are the library's.
struct SourcePlace {
    const char *symbol = nullptr;   ///< of the function that stands there
    const char *function = nullptr; ///< innermost of those that were put into each other, as the file and line
    const char *file = nullptr;
    int line = 0;
};

void ignoreError(void * /*data*/, const char * /*message*/, int /*errorNumber*/) {}

void takeSymbol(void *place, std::uintptr_t /*address*/, const char *symbol, std::uintptr_t /*value*/,
                std::uintptr_t /*size*/)
{
    static_cast<SourcePlace *>(place)->symbol = symbol;
}

int takeLine(void *place, std::uintptr_t /*address*/, const char *file, int line, const char *function)
{
    auto &found = *static_cast<SourcePlace *>(place);
    found.function = function;
    found.file = file;
    found.line = line;
    return 1; // the first of several is enough
}

SourcePlace placeOf(backtrace_state *names, std::uintptr_t address)
{
    SourcePlace place;
    if (names != nullptr) {
        ::backtrace_syminfo(names, address, takeSymbol, ignoreError, &place);
        ::backtrace_pcinfo(names, address, takeLine, ignoreError, &place);
    }
    return place;
}

std::string_view lastComponent(std::string_view path)
{
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

/// The file that the code is from and how far into it the address lies, as tools for debug information want it.
void appendModule(FixedText &text, std::uintptr_t address)
{
    dl_find_object object = {};
    std::string_view name;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an address is what the loader is asked for
    if (::_dl_find_object(reinterpret_cast<void *>(address), &object) == 0) {
        name = lastComponent(object.dlfo_link_map->l_name);
        name = name.empty() ? program_invocation_short_name : name;
        address -= object.dlfo_link_map->l_addr;
    }
    text.append(name).append("+0x").appendNumber(address, 16);
}

/// For what was loaded later than the names were read, plug-ins mostly.
const char *loaderSymbol(std::uintptr_t address)
{
    Dl_info info = {};
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return ::dladdr(reinterpret_cast<void *>(address), &info) == 0 ? nullptr : info.dli_sname;
}

} // namespace

CrashStack::CrashStack() : names(::backtrace_create_state(nullptr, 1, ignoreError, nullptr))
{
    // The library and the unwinder allocate at their first use.
    capture();
    for (std::size_t index = 0; index < count; ++index) {
        frame(index, Detail::Readable);
    }
    count = 0;
}

void CrashStack::capture()
{
    count = 0;
    if (names != nullptr) {
        ::backtrace_simple(names, 0, addFrame, ignoreError, this);
    }
}

int CrashStack::addFrame(void *stack, std::uintptr_t address)
{
    auto &self = *static_cast<CrashStack *>(stack);
    static constexpr std::uintptr_t endOfStack = ~std::uintptr_t{0};
    if (address == endOfStack || self.count == self.addresses.size()) {
        return 1;
    }
    self.addresses[self.count++] = address;
    return 0;
}

FixedText CrashStack::frame(std::size_t index, Detail detail) const
{
    FixedText text;
    appendModule(text, addresses[index]);
    if (detail == Detail::Address) {
        return text;
    }
    const SourcePlace place = placeOf(names, addresses[index]);
    const char *symbol = place.symbol != nullptr ? place.symbol : place.function;
    if (symbol == nullptr && detail == Detail::Readable) {
        symbol = loaderSymbol(addresses[index]);
    }
    if (symbol != nullptr && detail == Detail::Readable) {
        appendDemangled(text.append(" "), symbol);
    } else if (symbol != nullptr) {
        text.append(" ").append(symbol);
    }
    if (place.file != nullptr && place.line > 0) {
        text.append(" (").append(lastComponent(place.file)).append(":");
        text.appendNumber(static_cast<unsigned>(place.line)).append(")");
    }
    return text;
}

void appendDemangled(FixedText &text, const char *symbol)
{
    // The demangler's need of stack grows with the name.
    static constexpr std::size_t longestName = 2000;
    using Freed = std::unique_ptr<char, decltype(&std::free)>;
    const bool isShort = ::strnlen(symbol, longestName) < longestName;
    const Freed readable(isShort ? abi::__cxa_demangle(symbol, nullptr, nullptr, nullptr) : nullptr, &std::free);
    text.append(readable ? readable.get() : symbol);
}
