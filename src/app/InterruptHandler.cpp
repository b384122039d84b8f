#include "app/InterruptHandler.h"

InterruptHandler::InterruptHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (std::size_t index = 0; index < interrupts.size(); ++index) {
        sigaction(interrupts[index], nullptr, &before[index]);
        if (before[index].sa_handler != SIG_IGN) { // nohup, or a shell's background job
            sigaction(interrupts[index], &action, nullptr);
        }
    }
}

InterruptHandler::~InterruptHandler()
{
    for (std::size_t index = 0; index < interrupts.size(); ++index) {
        sigaction(interrupts[index], &before[index], nullptr);
    }
}
