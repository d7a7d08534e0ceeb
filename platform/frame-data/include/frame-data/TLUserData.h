#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>

/// The signed-in user, as the gateway knows them. All texts are empty while nobody is signed in.
class TL_FRAME_DATA_EXPORT TLUserData final
{
public:
    QString GetPin() const;
    /// The business that the account belongs to. Records of one belong type are never shown to another.
    QString GetBelongType() const;

    void Set(const QString& pin, const QString& belongType);

private:
    QString m_pin;
    QString m_belongType;
};
