#include "base-ui/RequestStatusBaseWidget.h"

#include "base-ui/TLPushButton.h"

#include "BusyIndicator.h"
#include "ScaleWatch.h"
#include "Scaled.h"
#include "SignLabel.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int Patience = 200; // [ms]
constexpr int Lowest = 180;   // [px, unscaled]

QLabel* MakeLabel(const QString& objectName, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

/// Like setVisible, but without laying out under a parent that is not shown yet: that is half the work of
/// filling a page, and happens again when the parent is shown.
void SetVisible(QWidget* widget, bool visible)
{
    QLayout* const layout = widget->layout();
    const bool later = visible && layout != nullptr && layout->isEnabled() &&
                       widget->parentWidget() != nullptr && !widget->parentWidget()->isVisible();
    if (later) {
        layout->setEnabled(false);
    }
    widget->setVisible(visible);
    if (later) {
        layout->setEnabled(true);
    }
}

// Puts them below each other in the middle of the panel. `button` may be null.
void AddTo(QWidget* panel, QWidget* picture, QWidget* text, QWidget* button)
{
    auto* layout = new QVBoxLayout(panel);
    layout->addStretch();
    layout->addWidget(picture, 0, Qt::AlignHCenter);
    layout->addWidget(text);
    if (button != nullptr) {
        layout->addWidget(button, 0, Qt::AlignHCenter);
    }
    layout->addStretch();
}

} // namespace

RequestStatusBaseWidget::RequestStatusBaseWidget(QWidget* parent)
    : TLBaseWidget(parent)
    , m_patience(new QTimer(this))
    , m_loadingPanel(new QWidget(this))
    , m_indicator(new BusyIndicator(m_loadingPanel))
    , m_loadingLabel(MakeLabel(QStringLiteral("loading_label"), m_loadingPanel))
    , m_failedPanel(new QWidget(this))
    , m_failedSign(new SignLabel(Sign::Warning, m_failedPanel))
    , m_failedLabel(MakeLabel(QStringLiteral("failed_label"), m_failedPanel))
    , m_refreshButton(new TLPushButton(m_failedPanel))
{
    m_loadingPanel->setObjectName(QStringLiteral("loading_widget"));
    m_failedPanel->setObjectName(QStringLiteral("failed_widget"));
    m_refreshButton->setObjectName(QStringLiteral("refresh_button"));
    m_refreshButton->m_sizeClass = 1;
    m_refreshButton->SetButtonType(ButtonType::Secondary);
    m_refreshButton->setAutoDefault(false);
    AddTo(m_loadingPanel, m_indicator, m_loadingLabel, nullptr);
    AddTo(m_failedPanel, m_failedSign, m_failedLabel, m_refreshButton);

    m_patience->setSingleShot(true);
    m_patience->setInterval(Patience);
    connect(m_patience, &QTimer::timeout, this, &RequestStatusBaseWidget::Apply);
    connect(m_refreshButton, &QPushButton::clicked, this, &RequestStatusBaseWidget::SigRefresh);
    m_scaleWatch = std::make_unique<ScaleWatch>([this] { AdjustForScale(); });
    AdjustForScale();
    Retranslate();
    m_patience->start();
    Apply();
}

RequestStatusBaseWidget::~RequestStatusBaseWidget() = default;

int RequestStatusBaseWidget::GetStatus() const noexcept
{
    return m_status;
}

void RequestStatusBaseWidget::SetStatus(int status)
{
    if (status < RequestStatus::Loading || status > RequestStatus::Succeeded) {
        return;
    }
    if (status == RequestStatus::Loading && m_status != RequestStatus::Loading) {
        m_lastHeight = height();
        m_patience->start();
    } else if (status != RequestStatus::Loading) {
        m_patience->stop();
    }
    m_status = status;
    Apply();
}

void RequestStatusBaseWidget::AddSucceedWidget(QWidget* widget)
{
    if (widget == nullptr) {
        return;
    }
    if (layout() == nullptr) {
        (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
    }
    if (layout()->indexOf(widget) < 0) {
        layout()->addWidget(widget);
    }
    m_succeedWidgets.append(widget);
    Apply();
}

QSize RequestStatusBaseWidget::sizeHint() const
{
    const QSize content = TLBaseWidget::sizeHint();
    if (m_status == RequestStatus::Succeeded) {
        return content;
    }
    const QSize panel = m_loadingPanel->sizeHint().expandedTo(m_failedPanel->sizeHint());
    return {qMax(content.width(), panel.width()), qMax(qMax(m_lastHeight, Scaled(Lowest)), panel.height())};
}

QSize RequestStatusBaseWidget::minimumSizeHint() const
{
    const QSize content = TLBaseWidget::minimumSizeHint();
    if (m_status == RequestStatus::Succeeded) {
        return content;
    }
    return content.expandedTo(m_failedPanel->minimumSizeHint());
}

void RequestStatusBaseWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
    TLBaseWidget::changeEvent(event);
}

void RequestStatusBaseWidget::resizeEvent(QResizeEvent* event)
{
    TLBaseWidget::resizeEvent(event);
    m_loadingPanel->setGeometry(rect());
    m_failedPanel->setGeometry(rect());
}

void RequestStatusBaseWidget::Apply()
{
    for (const QPointer<QWidget>& widget : qAsConst(m_succeedWidgets)) {
        if (!widget.isNull()) {
            SetVisible(widget, m_status == RequestStatus::Succeeded);
        }
    }
    SetVisible(m_failedPanel, m_status == RequestStatus::Failed);
    SetVisible(m_loadingPanel, m_status == RequestStatus::Loading && !m_patience->isActive());
    updateGeometry();
}

void RequestStatusBaseWidget::AdjustForScale()
{
    m_lastHeight = 0;
    for (QWidget* panel : {m_loadingPanel, m_failedPanel}) {
        panel->layout()->setContentsMargins(Scaled(16), Scaled(16), Scaled(16), Scaled(16));
        panel->layout()->setSpacing(Scaled(12));
    }
    m_indicator->updateGeometry();
    m_failedSign->updateGeometry();
    updateGeometry();
}

void RequestStatusBaseWidget::Retranslate()
{
    m_loadingLabel->setText(tr("Loading…"));
    m_indicator->setAccessibleName(tr("Loading…"));
    m_failedLabel->setText(tr("This could not be loaded."));
    m_refreshButton->setText(tr("Try again"));
}
