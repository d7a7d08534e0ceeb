#include "base-ui/TLMaskWidget.h"

#include "Fade.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

TLMaskWidget::TLMaskWidget(QWidget* window, QWidget* area)
    : QWidget(window), m_area(area), m_fade(std::make_unique<Fade>(this))
{
    setObjectName(QStringLiteral("mask"));
    setFocusPolicy(Qt::NoFocus);
    hide();
    area->installEventFilter(this);
    if (area != window) {
        window->installEventFilter(this);
    }
    connect(area, &QObject::destroyed, &m_connections, [this] { hide(); });
}

TLMaskWidget::~TLMaskWidget() = default;

QWidget* TLMaskWidget::GetArea() const noexcept
{
    return m_area;
}

void TLMaskWidget::ShowFor(QWidget* dialog)
{
    dialog->installEventFilter(this);
    connect(dialog, &QObject::destroyed, &m_connections, [this](QObject* gone) { Close(gone); });
    Open(dialog);
}

void TLMaskWidget::Open(QObject* dialog)
{
    m_dialogs.insert(dialog);
    if (isVisible() || m_area.isNull()) {
        return;
    }
    Follow();
    show();
    raise();
    m_fade->GoTo(1);
}

void TLMaskWidget::Close(QObject* dialog)
{
    m_dialogs.remove(dialog);
    if (!m_dialogs.isEmpty()) {
        return;
    }
    m_fade->Reset();
    hide();
}

bool TLMaskWidget::eventFilter(QObject* watched, QEvent* event)
{
    const bool ofWindow = watched == m_area || watched == parentWidget();
    switch (event->type()) {
    case QEvent::Show:
        if (!ofWindow) {
            Open(watched);
        }
        break;
    case QEvent::Hide:
        if (!ofWindow) {
            Close(watched);
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (ofWindow) {
            Follow();
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void TLMaskWidget::Follow()
{
    if (!m_area.isNull()) {
        setGeometry(QRect(m_area->mapTo(window(), QPoint()), m_area->size()));
    }
}

void TLMaskWidget::paintEvent(QPaintEvent*)
{
    QColor color = m_maskColor;
    if (!color.isValid()) {
        color = palette().color(QPalette::Shadow);
        color.setAlphaF(0.5);
    }
    color.setAlphaF(color.alphaF() * m_fade->GetOpacity());
    QPainter(this).fillRect(rect(), color);
}
