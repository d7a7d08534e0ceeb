#pragma once

#include <QtCore/QString>

/// What a person reads of an HTML document: its title, and its text without markup, scripts and styles.
/// Reads any text, in a time that grows only with its length.
struct HtmlText
{
    QString title;
    QString text; ///< one line per block, no blanks at the ends of lines, at most one empty line in a row

    static HtmlText Read(const QString& html);
};
