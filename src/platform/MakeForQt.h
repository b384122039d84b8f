#pragma once

#include <memory>
#include <utility>

/// Makes an object that Qt owns from then on: as a child of the parent among the arguments, or for the call that it is
/// made for, such as the posting of an event. The only way to make what no owner of ours holds.
template<class Object, class... Arguments>
Object *makeForQt(Arguments &&...arguments)
{
    return std::make_unique<Object>(std::forward<Arguments>(arguments)...).release();
}
