#pragma once

#include <QtCore/QString>

#include <utility>

/// What a response made of a reply's business value. The message is empty after a success.
class BusinessParseResult final
{
public:
    BusinessParseResult(bool success, QString message) : m_message(std::move(message)), m_success(success) {}

    bool IsSuccess() const noexcept { return m_success; }
    QString GetMessage() const { return m_message; }

private:
    QString m_message;
    bool m_success;
};
