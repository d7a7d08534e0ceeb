#include "TitleBar.h"

#include "CloseButton.h"
#include "ScaleWatch.h"
#include "Scaled.h"

#include <QtCore/QEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

TitleBar::TitleBar(bool closable, bool movable, QWidget* parent)
    : QWidget(parent), m_label(new QLabel(this)), m_movable(movable)
{
    setObjectName(QStringLiteral("title_bar"));
    m_label->setObjectName(QStringLiteral("title_label"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QFont font = m_label->font();
    font.setBold(true);
    m_label->setFont(font);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_label);
    if (closable) {
        m_closeButton = new CloseButton(28, this);
        m_closeButton->setObjectName(QStringLiteral("title_close_button"));
        connect(m_closeButton, &QAbstractButton::clicked, this, &TitleBar::SigClose);
        layout->addWidget(m_closeButton);
    }
    Retranslate();
    m_scaleWatch = std::make_unique<ScaleWatch>([this] { AdjustForScale(); });
    AdjustForScale();
}

TitleBar::~TitleBar() = default;

void TitleBar::SetText(const QString& text)
{
    m_label->setText(text);
}

QWidget* TitleBar::GetCloseButton() const noexcept
{
    return m_closeButton;
}

void TitleBar::AdjustForScale()
{
    setFixedHeight(Scaled(40));
    layout()->setContentsMargins(Scaled(24), 0, Scaled(6), 0);
    layout()->setSpacing(Scaled(8));
    if (m_closeButton != nullptr) {
        m_closeButton->updateGeometry();
    }
}

void TitleBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
    QWidget::changeEvent(event);
}

void TitleBar::mousePressEvent(QMouseEvent* event)
{
    if (!m_movable || event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    // The window system drags better than we do: it knows edges to snap to and other screens.
    QWindow* const handle = window()->windowHandle();
    m_dragging = handle == nullptr || !handle->startSystemMove();
    m_grip = event->globalPos() - window()->pos();
}

void TitleBar::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging) {
        window()->move(event->globalPos() - m_grip);
    }
    QWidget::mouseMoveEvent(event);
}

void TitleBar::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragging = false;
    QWidget::mouseReleaseEvent(event);
}

void TitleBar::Retranslate()
{
    if (m_closeButton == nullptr) {
        return;
    }
    m_closeButton->setAccessibleName(tr("Close"));
    m_closeButton->setToolTip(tr("Close"));
}
