#pragma once

#include <QtCore/QString>

#include <functional>

/// A button on a notice. The notice closes before `trigger` is called, unless `keepOpen`.
struct NoticeAction
{
    QString text;
    std::function<void()> trigger;
    bool keepOpen = false;
};
