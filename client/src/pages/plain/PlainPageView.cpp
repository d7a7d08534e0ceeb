#include "PlainPageView.h"

#include "PlainPageContent.h"
#include "look/ScaledWidget.h"
#include "pages/AddressInput.h"

#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtGui/QDesktopServices>
#include <QtGui/QTextDocument>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

PlainPageView::PlainPageView(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel)
    , m_row(new QHBoxLayout)
    , m_address(new QLineEdit)
    , m_open(new QPushButton)
    , m_text(new QPlainTextEdit)
    , m_note(new QLabel)
{
    setObjectName(QStringLiteral("plain_page"));
    setAttribute(Qt::WA_StyledBackground);
    setFocusProxy(m_text);

    m_title->setObjectName(QStringLiteral("plain_page_title"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_address->setObjectName(QStringLiteral("plain_page_address"));
    m_address->setReadOnly(true);
    m_address->setFrame(false);
    m_open->setObjectName(QStringLiteral("plain_page_open"));
    m_text->setObjectName(QStringLiteral("plain_page_text"));
    m_text->setReadOnly(true);
    m_text->setUndoRedoEnabled(false);
    // Without it the keyboard could not reach what is scrolled out of sight.
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_note->setObjectName(QStringLiteral("plain_page_note"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);

    m_row->addWidget(m_address, 1);
    m_row->addWidget(m_open);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_title);
    column->addLayout(m_row);
    column->addWidget(m_text, 1);
    column->addWidget(m_note);

    connect(m_open, &QPushButton::clicked, this, [this] { QDesktopServices::openUrl(m_url); });
    PlainPageView::AdjustForDpi();
    SetContent(QUrl(), QString(), QString(), Note::None);
}

void PlainPageView::SetContent(const QUrl& address, const QString& title, const QString& text, Note note,
                               const QString& type, qint64 size)
{
    m_url = address;
    m_title->setText(title.isEmpty() ? address.host() : title);
    m_address->setText(AddressInput::ToDisplay(address));
    m_address->setCursorPosition(0);
    m_open->setEnabled(address.isValid());
    m_text->setPlainText(text);
    m_text->setVisible(note != Note::NotText);
    m_noteKind = note;
    m_type = type;
    m_size = size;
    Retranslate();
}

QString PlainPageView::GetText() const
{
    return m_text->toPlainText();
}

int PlainPageView::Find(const QString& text, bool backward)
{
    QTextCursor cursor = m_text->textCursor();
    if (text.isEmpty()) {
        cursor.clearSelection();
        m_text->setTextCursor(cursor);
        return 0;
    }
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (!m_text->find(text, flags)) {
        m_text->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        m_text->find(text, flags);
    }
    return GetText().count(text, Qt::CaseInsensitive);
}

void PlainPageView::SetZoom(double factor)
{
    m_zoom = factor;
    SetRelativeFont(m_text, m_zoom);
}

void PlainPageView::AdjustForDpi()
{
    SetRelativeFont(m_title, 1.4, QFont::DemiBold);
    SetRelativeFont(m_text, m_zoom);
    m_row->setSpacing(Scaled(8));
    layout()->setContentsMargins(Scaled(QMargins(24, 16, 24, 16)));
    layout()->setSpacing(Scaled(8));
}

void PlainPageView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
    QWidget::changeEvent(event);
}

void PlainPageView::Retranslate()
{
    const QLocale locale;
    m_open->setText(tr("Open in the system browser"));
    m_address->setAccessibleName(tr("Address"));
    m_text->setAccessibleName(tr("Text of the page"));
    QString note;
    if (m_noteKind == Note::Cut) {
        note = tr("The page is longer than this. Only the first %1 are shown.")
                   .arg(locale.formattedDataSize(PlainPageContent::Limit));
    } else if (m_noteKind == Note::NotText) {
        const QString type = m_type.isEmpty() ? tr("of an unknown kind") : m_type;
        note = m_size < 0
                   ? tr("The site sent something other than text (%1), which is not shown here.").arg(type)
                   : tr("The site sent something other than text (%1, %2), which is not shown here.")
                         .arg(type, locale.formattedDataSize(m_size));
    }
    m_note->setText(note);
    m_note->setVisible(!note.isEmpty());
}
