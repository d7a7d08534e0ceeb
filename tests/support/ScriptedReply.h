#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QPair>

/// How a `ScriptedHttpServer` answers a request.
struct ScriptedReply
{
    enum class Kind
    {
        Whole,    ///< head and body; the connection stays open
        NoLength, ///< head and body, which ends with the connection
        Cut,      ///< announces the whole body, sends half of it and closes
        Raw,      ///< sends exactly `body`, which may begin with a head, then closes
        Endless,  ///< an endless body, until the client closes
        Close,    ///< closes without an answer
        Never     ///< no answer; the connection stays open
    };

    Kind kind = Kind::Whole;
    int status = 200;
    QByteArray body;
    QList<QPair<QByteArray, QByteArray>> headers; ///< in addition to Content-Length and Connection
    bool held = false;                            ///< waits for `ScriptedHttpServer::Release`

    static ScriptedReply Json(const QByteArray& body, int status = 200)
    {
        return {Kind::Whole, status, body, {{"Content-Type", "application/json; charset=utf-8"}}, false};
    }
    static ScriptedReply Html(const QByteArray& body, int status = 200)
    {
        return {Kind::Whole, status, body, {{"Content-Type", "text/html"}}, false};
    }
    static ScriptedReply Of(Kind kind, const QByteArray& body = QByteArray())
    {
        return {kind, 200, body, {}, false};
    }
    ScriptedReply With(const QByteArray& header, const QByteArray& value) const
    {
        ScriptedReply reply = *this;
        reply.headers.append(qMakePair(header, value));
        return reply;
    }
    ScriptedReply Held() const
    {
        ScriptedReply reply = *this;
        reply.held = true;
        return reply;
    }
};
