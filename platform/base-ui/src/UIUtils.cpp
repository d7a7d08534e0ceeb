#include "base-ui/UIUtils.h"

#include "LabelHighlighter.h"

#include <QtGui/QFontMetrics>
#include <QtWidgets/QLabel>

QString UIUtils::GetElidedText(const QString& text, const QFont& font, int width, Qt::TextElideMode mode)
{
    return QFontMetrics(font).elidedText(text, mode, width);
}

void UIUtils::SetElidedText(QLabel* label, const QString& text, int width, Qt::TextElideMode mode)
{
    const QString elided = GetElidedText(text, label->font(), width, mode);
    label->setTextFormat(Qt::PlainText);
    label->setText(elided);
    label->setAccessibleName(text);
    // A tool tip guesses whether its text is HTML; an escaped paragraph leaves nothing to guess.
    label->setToolTip(elided == text ? QString() : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()));
}

QString UIUtils::HighlightText(const QString& text, const QString& keyword, const QString& color)
{
    if (keyword.isEmpty()) {
        return text.toHtmlEscaped();
    }
    QString html;
    int from = 0;
    for (int at = 0; (at = text.indexOf(keyword, from, Qt::CaseInsensitive)) >= 0;
         from = at + keyword.size()) {
        html += text.mid(from, at - from).toHtmlEscaped();
        html += QStringLiteral("<span style=\"color:%1; font-weight:600\">%2</span>")
                    .arg(color, text.mid(at, keyword.size()).toHtmlEscaped());
    }
    return html + text.mid(from).toHtmlEscaped();
}

void UIUtils::HighlightLabel(QLabel* label, const QString& keyword)
{
    if (label != nullptr) {
        LabelHighlighter::Of(label)->Highlight(keyword);
    }
}
