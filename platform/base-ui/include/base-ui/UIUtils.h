#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtCore/QString>

class QFont;
class QLabel;

/// Small helpers for texts on widgets. GUI thread.
class TL_BASE_UI_EXPORT UIUtils final
{
public:
    UIUtils() = delete;

    /// The text as it fits into `width` [px] in `font`, with an ellipsis where something is left out.
    static QString GetElidedText(const QString& text, const QFont& font, int width,
                                 Qt::TextElideMode mode = Qt::ElideRight);

    /// Shows `text` on `label`, elided to `width` [px]; when something is left out, the whole text is the
    /// label's tool tip. No HTML. The accessible name is the whole text.
    static void SetElidedText(QLabel* label, const QString& text, int width,
                              Qt::TextElideMode mode = Qt::ElideRight);

    /// `text` as HTML in which each occurrence of `keyword`, in any case, stands in `color` and bold. All
    /// else is escaped, so that it shows as it is.
    static QString HighlightText(const QString& text, const QString& keyword, const QString& color);

    /// Highlights `keyword` in the text that `label` shows, in the palette's link colour, and keeps it so
    /// when the theme changes. An empty keyword takes the highlight away. A text that is set later replaces
    /// text and highlight; call this again for it. The label's text counts as plain text.
    static void HighlightLabel(QLabel* label, const QString& keyword);
};
