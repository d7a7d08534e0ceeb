#pragma once

#include "browser/PictureLoader.h"
#include "look/Theme.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>

class IPageFactory;
class TLPluginBaseManager;

/// What the main window needs of the rest of the client. The objects are not owned and outlive it.
struct MainWindowServices
{
    IPageFactory* pages = nullptr;
    TLPluginBaseManager* apps = nullptr;
    QString userName; ///< for the greeting on the home tab; may be empty

    Theme theme = Theme::FollowSystem; ///< what the menu shows as chosen
    QString language = QStringLiteral("en");

    /// The stored geometry; empty when there is none. Optional, as are the others.
    std::function<QByteArray()> loadGeometry;
    std::function<void(const QByteArray&)> saveGeometry;

    /// The icons of apps and of tabs that are not loaded yet; asked for only when they are in sight.
    PictureLoader loadPicture;
};
