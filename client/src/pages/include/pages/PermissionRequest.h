#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QUrl>

#include <functional>

/// A page asks for something that needs the user's consent.
struct PermissionRequest
{
    enum class Kind
    {
        Location,
        Notifications,
        Microphone,
        Camera,
        CameraAndMicrophone,
        ScreenCapture,
        MouseLock,
        SeveralDownloads
    };

    Kind kind = Kind::Location;
    QUrl origin;
    std::function<void(bool allow)> answer; ///< harmless when called late or twice
    /// Called instead when the page that asked is gone: nothing is remembered. May be empty.
    std::function<void()> withdraw;
};

Q_DECLARE_METATYPE(PermissionRequest)
