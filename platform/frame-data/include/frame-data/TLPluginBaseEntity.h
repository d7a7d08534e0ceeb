#pragma once

#include "frame-data/FrameDataExport.h"

#include "base/VXJsonParserBase.h"

/// One app of the app list.
class TL_FRAME_DATA_EXPORT TLPluginBaseEntity final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name)
    Q_PROPERTY(QString serviceCode MEMBER m_serviceCode)
    Q_PROPERTY(QString iconUrl MEMBER m_iconUrl)
    Q_PROPERTY(QString address MEMBER m_address)
    Q_PROPERTY(int availability MEMBER availability)

public:
    explicit TLPluginBaseEntity(QObject* parent = nullptr);

    QString GetPluginName() const;
    /// The app's key, unique in the list.
    QString GetServiceCode() const;
    QString GetIconUrl() const;
    /// The address of a web app; empty for a native one.
    QString GetAddress() const;

    /// 0: offered to the user; 1: known, so that it can still be opened, but not offered.
    int availability = 0;

private:
    QString m_name;
    QString m_serviceCode;
    QString m_iconUrl;
    QString m_address;
};
