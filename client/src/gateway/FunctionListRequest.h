#pragma once

#include "gateway/UserRequest.h"

/// Reads the function switches; answered with a `FunctionListEntity`.
class FunctionListRequest final : public UserRequest
{
    Q_OBJECT

public:
    explicit FunctionListRequest(QObject* parent = nullptr)
        : UserRequest(QStringLiteral("dsm.tl.pc.function.list"), parent)
    {}
};
