#pragma once

#include "core/CoreExport.h"

#include <QtCore/QObject>
#include <QtCore/QString>

/// Who is signed in, and on which device. The client sets it; everyone may read it. GUI thread.
class TL_CORE_EXPORT TLGlobalData final : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process.
    static TLGlobalData* Instance();

    /// The signed-in account; empty when nobody is signed in.
    QString GetPin() const;
    /// The signed-in user's belong type; empty when nobody is signed in.
    QString GetBelongType() const;
    /// The device identifier, the same for all users of a client profile; empty until the client sets it.
    QString GetUUID() const;

    void SetUser(const QString& pin, const QString& belongType);
    void ClearUser();
    void SetUUID(const QString& uuid);

Q_SIGNALS:
    /// Emitted after the pin or the belong type changed.
    void SigUserChanged();

private:
    TLGlobalData() = default;

    QString m_pin;
    QString m_belongType;
    QString m_uuid;
};
