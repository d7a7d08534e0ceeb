#include "FileSizeLimit.h"

#include <QtCore/qglobal.h>

#ifdef Q_OS_UNIX

#include <csignal>
#include <sys/resource.h>

bool FileSizeLimit::IsSupported() noexcept
{
    return true;
}

FileSizeLimit::FileSizeLimit(unsigned long bytes)
{
    (void)std::signal(SIGXFSZ, SIG_IGN); // the write then fails, which is what is wanted
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    m_before = limit.rlim_cur;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit()
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = m_before;
    setrlimit(RLIMIT_FSIZE, &limit);
}

#else

bool FileSizeLimit::IsSupported() noexcept
{
    return false;
}

FileSizeLimit::FileSizeLimit(unsigned long) {}

FileSizeLimit::~FileSizeLimit() = default;

#endif
