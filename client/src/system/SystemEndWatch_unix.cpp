#include "system/SystemEndWatch.h"

#include <QtCore/QSocketNotifier>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

// A signal handler can do little more than write to a pipe; the event loop reads the other end.
int signalPipe[2] = {-1, -1};

void HandleSignal(int)
{
    const int before = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = before;
}

void SetHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : {SIGTERM, SIGHUP}) {
        sigaction(number, &action, nullptr);
    }
}

} // namespace

void SystemEndWatch::StartSignals()
{
    if (::pipe(signalPipe) != 0) {
        return;
    }
    for (const int end : signalPipe) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    auto* const notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        while (::read(signalPipe[0], bytes, sizeof bytes) > 0) {
        }
        Q_EMIT SigSystemEnd();
    });
    SetHandler(HandleSignal);
}

void SystemEndWatch::StopSignals()
{
    // A second signal during the shutdown has its default effect.
    SetHandler(SIG_DFL);
    for (int& end : signalPipe) {
        if (end >= 0) {
            ::close(end);
            end = -1;
        }
    }
}
