#pragma once

/// While it lives, no file of this process can grow beyond a size, which to a program looks much like a
/// full disk. Only some systems can do this.
class FileSizeLimit final
{
public:
    static bool IsSupported() noexcept;

    explicit FileSizeLimit(unsigned long bytes);
    ~FileSizeLimit();

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    unsigned long m_before = 0;
};
