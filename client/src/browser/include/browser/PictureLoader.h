#pragma once

#include <QtCore/QString>
#include <QtGui/QPixmap>

#include <functional>

class QObject;

/// Fetches the picture at an address and hands it to `done` on the GUI thread, unless `context` is gone by
/// then. A picture that cannot be fetched is never handed over. `done` may be called at once.
using PictureLoader = std::function<void(const QString& url, QObject* context,
                                         const std::function<void(const QPixmap&)>& done)>;
