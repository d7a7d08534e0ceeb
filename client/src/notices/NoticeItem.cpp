#include "NoticeItem.h"

#include "look/IconLabel.h"
#include "look/Scaled.h"
#include "look/SymbolicIcon.h"

#include <QtCore/QEvent>
#include <QtCore/QVariant>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int IconSize = 18;      // [px]
constexpr int CloseSize = 16;     // of the icon on the close button [px]
constexpr int ProgressHeight = 4; // [px]

const char* KindName(NoticeKind kind)
{
    switch (kind) {
    case NoticeKind::Info:
        return "info";
    case NoticeKind::Warning:
        return "warning";
    case NoticeKind::Error:
        return "error";
    }
    return "info";
}

} // namespace

NoticeItem::NoticeItem(QWidget* parent)
    : QFrame(parent)
    , m_icon(new IconLabel(IconSize, this))
    , m_text(new QLabel(this))
    , m_row(new QHBoxLayout)
    , m_buttons(new QHBoxLayout)
    , m_close(new QToolButton(this))
    , m_progress(new QProgressBar(this))
{
    setObjectName(QStringLiteral("notice_item"));
    m_text->setObjectName(QStringLiteral("notice_text"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_close->setObjectName(QStringLiteral("notice_close"));
    m_close->setIcon(SymbolicIcon::Make(QStringLiteral("close")));
    m_close->setAutoRaise(true);
    m_progress->setObjectName(QStringLiteral("notice_progress"));
    m_progress->setTextVisible(false);
    m_progress->setRange(0, 100);
    m_progress->hide();

    m_row->addWidget(m_icon);
    m_row->addWidget(m_text, 1);
    m_row->addLayout(m_buttons);
    m_row->addWidget(m_close);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(m_row);
    column->addWidget(m_progress);

    connect(m_close, &QToolButton::clicked, this, [this] { Q_EMIT SigDone(m_dismissed); });
    NoticeItem::AdjustForDpi();
    Retranslate();
}

void NoticeItem::Set(NoticeKind kind, const QString& text, const QVector<NoticeAction>& actions,
                     const std::function<void()>& dismissed)
{
    const QString name = QLatin1String(KindName(kind));
    m_icon->SetIcon(SymbolicIcon::Make(name));
    setProperty("kind", name);
    style()->unpolish(this);
    style()->polish(this);
    SetText(text);
    m_dismissed = dismissed;

    while (QLayoutItem* item = m_buttons->takeAt(0)) {
        // A click on one of these buttons may be what replaces them.
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    for (const NoticeAction& action : actions) {
        auto* button = new QPushButton(action.text, this);
        button->setObjectName(QStringLiteral("notice_button"));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, action] {
            if (!action.keepOpen) {
                Q_EMIT SigDone(action.trigger);
            } else if (action.trigger) {
                action.trigger();
            }
        });
        m_buttons->addWidget(button);
    }
}

void NoticeItem::SetText(const QString& text)
{
    m_text->setText(text);
    setAccessibleName(text);
}

void NoticeItem::SetProgress(int percent)
{
    m_progress->setVisible(percent >= 0);
    m_progress->setValue(qBound(0, percent, 100));
}

QString NoticeItem::GetText() const
{
    return m_text->text();
}

void NoticeItem::AdjustForDpi()
{
    m_close->setIconSize(ScaledSquare(CloseSize));
    m_progress->setFixedHeight(Scaled(ProgressHeight));
    m_buttons->setSpacing(Scaled(8));
    m_row->setContentsMargins(Scaled(QMargins(16, 6, 8, 6)));
    m_row->setSpacing(Scaled(12));
}

void NoticeItem::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
}

void NoticeItem::Retranslate()
{
    m_close->setToolTip(tr("Close"));
    m_close->setAccessibleName(tr("Close this message"));
    m_progress->setAccessibleName(tr("Progress"));
}
