#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QPair>

/// What a `ScriptedHttpServer` does when a request has come in.
struct ScriptedReply
{
    enum class Kind
    {
        Whole,    ///< head and body, and the connection stays open
        NoLength, ///< head and body, whose end is the end of the connection
        Cut,      ///< announces the whole body, sends half of it and closes
        Raw,      ///< `body` is all that is sent, head included if there is one; then closes
        Endless,  ///< a body without end, until the client closes
        Close,    ///< closes without a word
        Never     ///< nothing at all, the connection stays open
    };

    Kind kind = Kind::Whole;
    int status = 200;
    QByteArray body;
    QList<QPair<QByteArray, QByteArray>> headers; ///< beside Content-Length and Connection
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
