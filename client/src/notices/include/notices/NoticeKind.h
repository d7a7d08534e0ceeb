#pragma once

enum class NoticeKind
{
    Info,
    Warning,
    Error
};
