#include "FindBar.h"

#include "look/Scaled.h"
#include "look/SymbolicIcon.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

namespace {

constexpr int FieldWidth = 280; // [px]
constexpr int IconSize = 18;    // [px]

QToolButton* MakeButton(QWidget* parent, const QString& icon)
{
    auto* button = new QToolButton(parent);
    button->setIcon(SymbolicIcon::Make(icon));
    button->setAutoRaise(true);
    return button;
}

} // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent)
    , m_text(new QLineEdit(this))
    , m_result(new QLabel(this))
    , m_previous(MakeButton(this, QStringLiteral("chevron-up")))
    , m_next(MakeButton(this, QStringLiteral("chevron-down")))
    , m_close(MakeButton(this, QStringLiteral("close")))
{
    setObjectName(QStringLiteral("find_bar"));
    setAttribute(Qt::WA_StyledBackground);
    m_text->setObjectName(QStringLiteral("find_edit"));
    m_result->setObjectName(QStringLiteral("find_result"));
    auto* row = new QHBoxLayout(this);
    row->addWidget(m_text);
    row->addWidget(m_previous);
    row->addWidget(m_next);
    row->addWidget(m_result);
    row->addStretch();
    row->addWidget(m_close);
    setFocusProxy(m_text);
    hide();

    connect(m_text, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text.isEmpty()) {
            SetFound(-1);
        }
        Q_EMIT SigFind(text, false);
    });
    connect(m_next, &QToolButton::clicked, this, [this] { Q_EMIT SigFind(m_text->text(), false); });
    connect(m_previous, &QToolButton::clicked, this, [this] { Q_EMIT SigFind(m_text->text(), true); });
    connect(m_close, &QToolButton::clicked, this, &FindBar::Close);
    FindBar::AdjustForDpi();
    Retranslate();
}

void FindBar::Open()
{
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
    if (!m_text->text().isEmpty()) {
        Q_EMIT SigFind(m_text->text(), false);
    }
}

void FindBar::Close()
{
    if (isHidden()) {
        return;
    }
    hide();
    Q_EMIT SigFind(QString(), false);
    Q_EMIT SigClosed();
}

void FindBar::SetFound(int count)
{
    m_found = m_text->text().isEmpty() ? -1 : count;
    m_result->setText(m_found < 0    ? QString()
                      : m_found == 0 ? tr("Not found")
                                     : tr("Matches: %1").arg(m_found));
}

void FindBar::AdjustForDpi()
{
    m_text->setFixedWidth(Scaled(FieldWidth));
    for (QToolButton* button : {m_previous, m_next, m_close}) {
        button->setIconSize(ScaledSquare(IconSize));
    }
    m_result->setContentsMargins(Scaled(8), 0, 0, 0);
    layout()->setContentsMargins(Scaled(QMargins(16, 8, 8, 8)));
    layout()->setSpacing(Scaled(4));
}

void FindBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        Close();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT SigFind(m_text->text(), (event->modifiers() & Qt::ShiftModifier) != 0);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void FindBar::Retranslate()
{
    const auto name = [](QToolButton* button, const QString& text) {
        button->setToolTip(text);
        button->setAccessibleName(text);
    };
    m_text->setPlaceholderText(tr("Find in page"));
    m_text->setAccessibleName(tr("Find in page"));
    name(m_previous, tr("Previous match (Shift+Enter)"));
    name(m_next, tr("Next match (Enter)"));
    name(m_close, tr("Close"));
    SetFound(m_found);
}
