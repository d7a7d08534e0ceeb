#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>

/// The signed-in user, as the gateway knows them. Empty texts while nobody is signed in.
class TL_FRAME_DATA_EXPORT TLUserData final
{
public:
    QString GetPin() const;
    /// Which business the account belongs to; records of one belong type are never shown to another.
    QString GetBelongType() const;

    void Set(const QString& pin, const QString& belongType);

private:
    QString m_pin;
    QString m_belongType;
};
