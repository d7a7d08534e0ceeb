#include "LabelHighlighter.h"

#include "base-ui/UIUtils.h"

#include <QtCore/QEvent>
#include <QtGui/QPalette>
#include <QtGui/QTextDocument>
#include <QtWidgets/QLabel>

LabelHighlighter* LabelHighlighter::Of(QLabel* label)
{
    auto* highlighter = label->findChild<LabelHighlighter*>(QString(), Qt::FindDirectChildrenOnly);
    return highlighter != nullptr ? highlighter : new LabelHighlighter(label);
}

LabelHighlighter::LabelHighlighter(QLabel* label)
    : QObject(label), m_label(label), m_format(label->textFormat())
{
    label->installEventFilter(this);
}

LabelHighlighter::~LabelHighlighter() = default;

void LabelHighlighter::Highlight(const QString& keyword)
{
    m_keyword = keyword;
    if (m_label->text() != m_written || m_written.isEmpty()) {
        m_plain = m_label->text();
    }
    Write();
}

bool LabelHighlighter::eventFilter(QObject* watched, QEvent* event)
{
    const bool ours = m_label->text() == m_written;
    if (event->type() == QEvent::PaletteChange && ours && !m_keyword.isEmpty()) {
        Write();
    } else if (event->type() == QEvent::Paint && !ours && m_label->textFormat() != m_format) {
        // Someone set a new text, which is not our HTML.
        m_label->setTextFormat(m_format);
    }
    return QObject::eventFilter(watched, event);
}

void LabelHighlighter::Write()
{
    if (m_keyword.isEmpty()) {
        m_written = m_plain;
        // Text stays text even when it looks like HTML.
        m_label->setTextFormat(Qt::mightBeRichText(m_plain) ? Qt::PlainText : m_format);
    } else {
        const QColor color = m_label->palette().color(QPalette::Link);
        // HTML would merge several spaces into one.
        m_written = QStringLiteral("<div style=\"white-space:pre-wrap\">%1</div>")
                        .arg(UIUtils::HighlightText(m_plain, m_keyword, color.name()));
        m_label->setTextFormat(Qt::RichText);
    }
    m_label->setText(m_written);
}
