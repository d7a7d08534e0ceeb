#pragma once

#include "browser/Theme.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QPixmap>

#include <functional>

class IPageFactory;
class QObject;
class TLPluginBaseManager;

/// What the main window needs of the rest of the client. The objects are not owned and outlive it.
struct MainWindowServices
{
    IPageFactory* pages = nullptr;
    TLPluginBaseManager* apps = nullptr;
    QString userName; ///< as the home tab greets the user; may be empty

    Theme theme = Theme::FollowSystem; ///< what the menu shows as chosen
    QString language = QStringLiteral("en");

    /// The stored geometry; empty when there is none. May be left out, as may the others.
    std::function<QByteArray()> loadGeometry;
    std::function<void(const QByteArray&)> saveGeometry;

    /// Fetches the picture at an address and hands it to `done` on the GUI thread, unless `context` is
    /// gone by then. A picture that cannot be had is never handed over. `done` may be called at once.
    std::function<void(const QString& url, QObject* context, const std::function<void(const QPixmap&)>& done)>
        loadPicture;
};
