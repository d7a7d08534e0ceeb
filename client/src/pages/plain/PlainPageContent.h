#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// What a plain page shows of an answer. Pure functions, for bytes from anywhere.
struct PlainPageContent
{
    /// How much of an answer is fetched and shown [bytes].
    static constexpr int Limit = 1024 * 1024;

    QString title; ///< empty where the answer says none
    QString text;

    /// Whether an answer of this Content-Type is text. Of an answer without one that depends on how it
    /// begins.
    static bool IsText(const QByteArray& contentType, const QByteArray& beginning);
    /// The answer in its own encoding: that of the byte order mark, of the Content-Type or of the document;
    /// UTF-8 where none is said.
    static PlainPageContent Read(const QByteArray& contentType, const QByteArray& body);
    /// The type without its parameters, in lower case; empty when there is none.
    static QString TypeOf(const QByteArray& contentType);
};
