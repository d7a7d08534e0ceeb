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

    /// The text cut to `width` [px] in `font`, with an ellipsis where something is left out.
    static QString GetElidedText(const QString& text, const QFont& font, int width,
                                 Qt::TextElideMode mode = Qt::ElideRight);

    /// Shows `text` on `label`, elided to `width` [px]. When something is left out, the whole text becomes
    /// the label's tool tip. Not HTML. The accessible name is always the whole text.
    static void SetElidedText(QLabel* label, const QString& text, int width,
                              Qt::TextElideMode mode = Qt::ElideRight);

    /// `text` as HTML in which each occurrence of `keyword`, in any case, is bold and in `color`. Everything
    /// else is escaped and shows as it is.
    static QString HighlightText(const QString& text, const QString& keyword, const QString& color);

    /// Highlights `keyword` in the label's text, which counts as plain text, in the palette's link colour,
    /// and follows changes of the theme. An empty keyword removes the highlight. A text that is set later
    /// replaces text and highlight; call this again for it.
    static void HighlightLabel(QLabel* label, const QString& keyword);
};
