#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// Keys on a virtual screen, as a person would press them, through the xdotool program.
class Desktop final
{
public:
    explicit Desktop(const QString& display);

    /// Waits for a visible window of the process and gives it the keyboard; false when none comes within
    /// 30 s.
    [[nodiscard]] bool WaitForWindow(qint64 processId) const;
    [[nodiscard]] bool Type(const QString& text) const;
    /// Keys in xdotool's names, such as "alt+s".
    [[nodiscard]] bool Press(const QStringList& keys) const;

private:
    bool Run(const QStringList& arguments) const;

    QString m_display;
};
