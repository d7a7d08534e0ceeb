#pragma once

#include "base/VXJsonParserBase.h"

#include <QtCore/QString>

/// One entry of the auto-run configuration: a web page or an app that opens at start. The logic's cache, the
/// opener and the settings page share entries and never copy them: all of them see a change that one makes.
/// GUI thread.
class AutoRunInfoEntity final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString itemId MEMBER itemId)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString url MEMBER url)
    Q_PROPERTY(bool systemItem MEMBER systemItem)
    Q_PROPERTY(bool checked MEMBER checked)
    Q_PROPERTY(bool activeItem MEMBER activeItem)
    Q_PROPERTY(int type MEMBER type)

public:
    /// Values of `type`. Everything but `TypeApp` opens as a web address.
    static constexpr int TypeWebAddress = 0;
    static constexpr int TypeApp = 1;

    explicit AutoRunInfoEntity(QObject* parent = nullptr);

    QString itemId;
    /// The text shown for the entry.
    QString name;
    /// The address to open; for an app, its key in the app list.
    QString url;
    /// The operator added the entry; the user can tick it but neither edit nor delete it.
    bool systemItem = false;
    /// Opens at start.
    bool checked = false;
    /// Comes to the front after everything is open.
    bool activeItem = false;
    int type = TypeWebAddress;

private:
    Q_DISABLE_COPY(AutoRunInfoEntity)
};
