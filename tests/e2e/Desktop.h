#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// Presses keys on a virtual screen as a user would, through the xdotool program.
class Desktop final
{
public:
    explicit Desktop(const QString& display);

    /// Waits until a window of the process has the focus; false when none has within a minute.
    [[nodiscard]] bool WaitForWindow(qint64 processId) const;
    /// Waits until the window with the focus has this title; false after `timeout` [ms].
    [[nodiscard]] bool WaitForTitle(const QString& title, int timeout = 60000) const;
    [[nodiscard]] bool Type(const QString& text) const;
    /// The same as fast as the client can read.
    [[nodiscard]] bool TypeFast(const QString& text) const;
    /// Presses keys, by xdotool's names such as "alt+s".
    [[nodiscard]] bool Press(const QStringList& keys) const;

private:
    bool WaitForKeyboard(const QString& property, const QByteArray& wanted, int timeout) const;
    bool Run(const QStringList& arguments, QByteArray* output = nullptr) const;

    QString m_display;
};
