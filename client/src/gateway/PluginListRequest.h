#pragma once

#include "gateway/UserRequest.h"

/// Reads the app list; answered with a `PluginListEntity`.
class PluginListRequest final : public UserRequest
{
    Q_OBJECT

public:
    explicit PluginListRequest(QObject* parent = nullptr)
        : UserRequest(QStringLiteral("dsm.tl.pc.plugin.list"), parent)
    {}
};
