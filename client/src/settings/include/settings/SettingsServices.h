#pragma once

#include "monitoring/MonitorEvent.h"
#include "settings/AboutEntry.h"

#include "look/Theme.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>

/// What the settings dialog needs of the rest of the client. A function may be left out; what it would do is
/// then not offered. All are called on the GUI thread and outlive the dialog.
struct SettingsServices
{
    Theme theme = Theme::FollowSystem;
    std::function<void(Theme)> chooseTheme;
    int scale = 100; ///< [%]
    std::function<void(int)> chooseScale;
    QString language = QStringLiteral("en");
    std::function<void(const QString&)> chooseLanguage;

    /// Clears what pages stored: cookies at once, cache and the rest at the next start. Calls `done` once,
    /// with whether it worked.
    std::function<void(const std::function<void(bool)>& done)> clearBrowsingData;
    /// Whether a session is saved for the next start, and how to delete it.
    std::function<bool()> hasSavedSession;
    std::function<void(const std::function<void()>& done)> forgetSession;
    /// Clears the replies that serve while the gateway cannot be reached.
    std::function<void()> clearCachedReplies;

    /// What is recorded of the user's actions, the oldest first.
    std::function<QVector<MonitorEvent>()> loadEvents;
    std::function<void()> clearEvents;

    QVector<AboutEntry> versions; ///< of client, Qt, web engine and modules

    /// What the dialog remembers from one time to the next; empty the first time.
    std::function<QByteArray()> loadGeometry;
    std::function<void(const QByteArray&)> saveGeometry;
    std::function<QString()> loadPage;
    std::function<void(const QString&)> savePage;
};
