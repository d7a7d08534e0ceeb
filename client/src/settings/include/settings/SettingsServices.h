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

    /// What pages stored: cookies at once, cache and the rest at the next start. `done` is called once, with
    /// whether it worked.
    std::function<void(const std::function<void(bool)>& done)> clearBrowsingData;
    /// Whether a session stays when the client ends, and ends that.
    std::function<bool()> hasKeptSession;
    std::function<void(const std::function<void()>& done)> forgetSession;
    /// The replies of the gateway that serve while it cannot be reached.
    std::function<void()> clearKeptReplies;

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
