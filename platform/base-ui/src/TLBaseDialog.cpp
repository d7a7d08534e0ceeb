#include "base-ui/TLBaseDialog.h"

#include "TitleBar.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

namespace {

Qt::WindowFlags FlagsFor(Qt::WindowFlags flags, int titleType)
{
    return titleType == TitleType::System ? flags : flags | Qt::FramelessWindowHint;
}

bool IsReachableByTab(const QWidget* widget)
{
    return widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
           widget->focusProxy() == nullptr && !widget->isHidden();
}

} // namespace

TLBaseDialog::TLBaseDialog(QWidget* parent, Qt::WindowFlags flags, int titleType, bool movable)
    : QDialog(parent, FlagsFor(flags, titleType))
    , IDpiAdapter(true)
    , m_contentWidget(new QWidget(this))
    , m_hasFrame(titleType != TitleType::System)
{
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    const int border = m_hasFrame ? 1 : 0;
    layout->setContentsMargins(border, border, border, border);
    if (titleType == TitleType::TitleBar) {
        m_titleBar = new TitleBar((flags & Qt::WindowCloseButtonHint) != 0, movable, this);
        connect(m_titleBar, &TitleBar::SigClose, this, &TLBaseDialog::close);
        layout->addWidget(m_titleBar);
    }
    layout->addWidget(m_contentWidget, 1);
}

TLBaseDialog::~TLBaseDialog() = default;

QWidget* TLBaseDialog::GetContentWidget() const noexcept
{
    return m_contentWidget;
}

void TLBaseDialog::SetTitleText(const QString& text, bool asWindowTitle)
{
    if (m_titleBar != nullptr) {
        m_titleBar->SetText(text);
    }
    if (asWindowTitle) {
        setWindowTitle(text);
    }
}

void TLBaseDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        ChangeSkin();
    }
}

void TLBaseDialog::paintEvent(QPaintEvent* event)
{
    QDialog::paintEvent(event);
    if (!m_hasFrame) {
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TLBaseDialog::showEvent(QShowEvent* event)
{
    FocusForm();
    QDialog::showEvent(event);
}

void TLBaseDialog::FocusForm()
{
    if (focusWidget() != nullptr) {
        return;
    }
    // The title bar is first in the order of Tab, but the user who opens a form wants to fill it in.
    for (QWidget* it = nextInFocusChain(); it != this; it = it->nextInFocusChain()) {
        if (m_contentWidget->isAncestorOf(it) && IsReachableByTab(it)) {
            it->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}
