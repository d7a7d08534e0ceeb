#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// What a plain page shows of an answer. Pure functions, for bytes from anywhere.
struct PlainPageContent
{
    /// The most that is fetched and shown of an answer [bytes].
    static constexpr int Limit = 1024 * 1024;

    QString title; ///< empty if the answer has none
    QString text;

    /// Whether an answer of this Content-Type is text. Without a type, the beginning of the answer decides.
    static bool IsText(const QByteArray& contentType, const QByteArray& beginning);
    /// Decodes the answer as the byte order mark, the Content-Type or the document says; as UTF-8 if none of
    /// them does.
    static PlainPageContent Read(const QByteArray& contentType, const QByteArray& body);
    /// The type without its parameters, in lower case; empty when there is none.
    static QString TypeOf(const QByteArray& contentType);
};
