#include "SaveStatus.h"

#include "SaveProblem.h"

#include "base-ui/TLPushButton.h"
#include "base/DpiTool.h"

#include <QtCore/QEvent>
#include <QtCore/QPropertyAnimation>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtWidgets/QFrame>
#include <QtWidgets/QGraphicsOpacityEffect>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

constexpr int PatienceTime = 300; // [ms], before which nobody notices
constexpr int StayTime = 2000;    // [ms]
constexpr int FadeTime = 400;     // [ms]

void Announce(QWidget* widget)
{
    QAccessibleEvent event(widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace

SaveStatus::SaveStatus(QObject* parent)
    : QObject(parent)
    , m_line(new QLabel)
    , m_opacity(new QGraphicsOpacityEffect(m_line))
    , m_fade(new QPropertyAnimation(m_opacity, "opacity", this))
    , m_notice(new QFrame)
    , m_text(new QLabel)
    , m_button(new TLPushButton)
    , m_patience(new QTimer(this))
    , m_stay(new QTimer(this))
{
    m_line->setObjectName(QStringLiteral("settings_save_line"));
    m_line->setTextFormat(Qt::PlainText);
    m_line->setGraphicsEffect(m_opacity);
    m_opacity->setEnabled(false);
    m_fade->setDuration(FadeTime);
    m_fade->setStartValue(1.0);
    m_fade->setEndValue(0.0);

    m_notice->setObjectName(QStringLiteral("settings_notice"));
    m_text->setObjectName(QStringLiteral("settings_notice_text"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_button->setObjectName(QStringLiteral("settings_load_again"));
    m_button->SetButtonType(ButtonType::Secondary);
    m_button->setAutoDefault(false);
    auto* row = new QHBoxLayout(m_notice);
    row->addWidget(m_text, 1);
    row->addWidget(m_button, 0, Qt::AlignVCenter);
    m_notice->hide();
    m_notice->installEventFilter(this);
    AdjustForScale();

    m_patience->setSingleShot(true);
    m_patience->setInterval(PatienceTime);
    m_patience->setTimerType(Qt::PreciseTimer);
    m_stay->setSingleShot(true);
    m_stay->setInterval(StayTime);
    connect(m_patience, &QTimer::timeout, this, [this] {
        m_slow = true;
        Update();
    });
    connect(m_stay, &QTimer::timeout, this, &SaveStatus::Fade);
    connect(m_fade, &QPropertyAnimation::finished, this, [this] {
        m_kind = Kind::Quiet;
        Update();
    });
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (m_kind == Kind::Lost) {
            Reset();
        } else {
            Q_EMIT SigLoadAgain();
        }
    });
}

SaveStatus::~SaveStatus() = default;

QWidget* SaveStatus::GetNotice() const noexcept
{
    return m_notice;
}

void SaveStatus::SetBusy(bool busy)
{
    if (busy) {
        if (!m_slow && !m_patience->isActive()) {
            m_patience->start();
        }
        return;
    }
    m_patience->stop();
    m_slow = false;
    Update();
}

void SaveStatus::SetSaved()
{
    m_kind = Kind::Saved;
    Update();
    m_stay->start();
    Announce(m_line);
}

void SaveStatus::SetFailed(const QString& code, const QString& description)
{
    m_kind = Kind::Failed;
    m_code = code;
    m_description = description;
    Update();
    Announce(m_notice);
}

void SaveStatus::SetLost()
{
    m_kind = Kind::Lost;
    Update();
    Announce(m_notice);
}

void SaveStatus::SetStale(bool stale)
{
    if (!stale && !m_stale) {
        return;
    }
    m_stale = stale;
    Update();
    if (stale) {
        Announce(m_notice);
    }
}

void SaveStatus::Reset()
{
    m_kind = Kind::Quiet;
    Update();
}

bool SaveStatus::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_notice) {
        if (event->type() == QEvent::LanguageChange) {
            Update();
        } else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
            AdjustForScale();
        }
    }
    return QObject::eventFilter(watched, event);
}

void SaveStatus::Update()
{
    m_fade->stop();
    m_stay->stop();
    m_opacity->setEnabled(false);
    m_opacity->setOpacity(1.0);

    const QString line = m_slow ? tr("Saving…") : m_kind == Kind::Saved ? tr("Saved") : QString();
    m_line->setText(line);
    m_line->setAccessibleName(line);
    if (m_kind == Kind::Saved && !m_slow) {
        m_stay->start();
    }

    if (m_kind == Kind::Failed) {
        const QString text =
            SaveProblem::IsOfContent(m_code)
                ? tr("Not saved. %1 Nothing on this page can be saved until you change or delete that entry.")
                : tr("Not saved. %1 The change stays on this page and goes out with your next one.");
        m_text->setText(text.arg(SaveProblem::Describe(m_code, m_description)));
        m_button->setText(tr("Load again"));
        m_button->setToolTip(tr("Discards the change and shows what is stored"));
    } else if (m_kind == Kind::Lost) {
        m_text->setText(
            tr("The page was loaded again before your last change could be saved. Please check it "
               "and change it again."));
        m_button->setText(tr("OK"));
        m_button->setToolTip(QString());
    } else if (m_stale) {
        m_text->setText(tr("The gateway cannot be reached. This is the last known configuration; it can be "
                           "changed once the gateway answers."));
        m_button->setText(tr("Load again"));
        m_button->setToolTip(QString());
    }
    m_notice->setAccessibleName(m_text->text());
    m_notice->setVisible(m_kind == Kind::Failed || m_kind == Kind::Lost || m_stale);
}

void SaveStatus::Fade()
{
    m_opacity->setEnabled(true);
    m_fade->start();
}

void SaveStatus::AdjustForScale()
{
    const auto scaled = &DpiTool::ScaleDefault;
    m_notice->layout()->setContentsMargins(scaled(32), scaled(10), scaled(32), scaled(10));
    m_notice->layout()->setSpacing(scaled(16));
}
