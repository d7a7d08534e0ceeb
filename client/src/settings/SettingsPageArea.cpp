#include "SettingsPageArea.h"

#include "AccessibleNames.h"
#include "ButtonAccessible.h"
#include "ReadableLabels.h"
#include "SaveStatus.h"
#include "SettingsPageFaces.h"
#include "gateway/HttpManagerProxy.h"

#include "base-ui/KeyboardAccess.h"
#include "base/DpiTool.h"
#include "frame-core/ISysSettingFactory.h"
#include "frame-core/SettingItemBaseWidget.h"

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace {

constexpr int TypingPause = 250; // [ms] after which a search word counts as typed
constexpr int RetryPause = 50;   // [ms]
constexpr int WidestPage = 824;  // [px, unscaled], margins included

} // namespace

SettingsPageArea::SettingsPageArea(const SettingsPageEntry& entry, HttpManagerProxy* calls,
                                   const QString& keyword, QWidget* parent)
    : QWidget(parent)
    , m_entry(entry)
    , m_hold(calls)
    , m_status(new SaveStatus(this))
    , m_title(new QLabel(this))
    , m_scroll(new QScrollArea(this))
    , m_sheet(new QWidget)
    , m_makeTimer(new QTimer(this))
    , m_keywordTimer(new QTimer(this))
    , m_keyword(keyword)
{
    setObjectName(QStringLiteral("settings_page_area"));
    BuildLayout();
    m_makeTimer->setSingleShot(true);
    connect(m_makeTimer, &QTimer::timeout, this, &SettingsPageArea::TryToMake);
    m_keywordTimer->setSingleShot(true);
    m_keywordTimer->setInterval(TypingPause);
    connect(m_keywordTimer, &QTimer::timeout, this, [this] {
        if (m_keyword != m_madeKeyword && !IsBusy() && !IsUnsaved()) {
            MakeSoon(Reason::Surroundings);
        }
    });
    connect(&m_hold, &InputHold::SigBusyChanged, this, &SettingsPageArea::HandleBusy);
    connect(&m_hold, &InputHold::SigChangeFailed, this,
            [this](const QString& code, const QString& description) {
                m_code = code;
                m_description = description;
            });
    connect(&m_hold, &InputHold::SigInputLost, this, &SettingsPageArea::HandleInputLost);
    connect(m_status, &SaveStatus::SigLoadAgain, this, [this] {
        if (IsUnsaved()) {
            MakeSoon(Reason::LoadAgain);
        } else {
            LoadIfStale();
        }
    });
    connect(calls, &HttpManagerProxy::SigStarted, this, [this, calls](quint64 call, bool isWrite) {
        HandleStart(call, isWrite);
        if (m_reads.contains(call)) {
            calls->KeepUpToDate();
        }
    });
    connect(calls, &HttpManagerProxy::SigServedFromCache, this, &SettingsPageArea::HandleServedFromCache);
    connect(calls, &HttpManagerProxy::SigEnded, this, &SettingsPageArea::HandleEnd);
    Adjust();
    Make();
}

SettingsPageArea::~SettingsPageArea() = default;

void SettingsPageArea::SetKeyword(const QString& keyword)
{
    if (m_keyword == keyword) {
        return;
    }
    m_keyword = keyword;
    if (m_page != nullptr) {
        m_page->SetKeyword(keyword);
    }
    // The rows of a page learn the word only when they are made.
    if (!m_entry.own) {
        m_keywordTimer->start();
    }
}

void SettingsPageArea::LoadIfStale()
{
    if (m_stale) {
        MakeSoon(Reason::Surroundings);
    }
}

void SettingsPageArea::FollowSurroundings()
{
    Adjust();
    if (!m_entry.own) {
        MakeSoon(Reason::Surroundings);
    }
}

bool SettingsPageArea::IsBusy() const noexcept
{
    return m_hold.IsBusy();
}

bool SettingsPageArea::IsUnsaved() const noexcept
{
    return m_status->IsUnsaved();
}

void SettingsPageArea::SaveData()
{
    if (m_page != nullptr) {
        m_page->SaveData();
    }
}

void SettingsPageArea::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        Adjust();
    }
    QWidget::changeEvent(event);
}

void SettingsPageArea::BuildLayout()
{
    m_title->setObjectName(QStringLiteral("settings_page_title"));
    m_title->setTextFormat(Qt::PlainText);
    m_scroll->setObjectName(QStringLiteral("settings_scroll"));
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_sheet->setObjectName(QStringLiteral("settings_sheet"));
    new QVBoxLayout(m_sheet);
    ButtonAccessible::Adopt(m_sheet);
    m_scroll->setWidget(m_sheet);

    auto* heading = new QHBoxLayout;
    heading->addWidget(m_title);
    heading->addStretch();
    heading->addWidget(m_status->GetLine(), 0, Qt::AlignVCenter);
    auto* column = new QVBoxLayout(this);
    column->addLayout(heading);
    column->addWidget(m_scroll, 1);
    column->addWidget(m_status->GetNotice());
}

void SettingsPageArea::MakeSoon(Reason reason)
{
    const bool isPlanned = m_makeTimer->isActive();
    if (!isPlanned || reason == Reason::LoadAgain) {
        m_reason = reason;
    }
    m_hold.SetBlocked(true);
    m_makeTimer->start(0);
}

void SettingsPageArea::TryToMake()
{
    // Not while the page's own code waits for a dialog, or for the answer to a change.
    const QWidget* const modal = QApplication::activeModalWidget();
    if (m_hold.IsInFlight() || m_hold.IsPageDealing() || (modal != nullptr && modal != window())) {
        m_makeTimer->start(RetryPause);
    } else {
        Make();
    }
}

void SettingsPageArea::Make()
{
    const bool loses = m_reason == Reason::Surroundings && IsUnsaved();
    QWidget* const focus = QApplication::focusWidget();
    m_focusPlace.reset();
    if (m_page != nullptr && focus != nullptr && m_page->isAncestorOf(focus)) {
        m_focusPlace = WidgetPlace(m_page, focus);
    }
    m_loading.clear();
    m_reads.clear();
    m_stale = false;
    m_madeKeyword = m_keyword;
    m_hold.SetPage(nullptr);
    delete m_page;
    {
        const QScopedValueRollback<bool> making(m_making, true);
        m_page = m_entry.factory->CreateSettingWidget(m_entry.id);
        if (m_page != nullptr) {
            m_page->SetKeyword(m_keyword);
        }
    }
    if (m_page == nullptr) {
        m_hold.Drop();
        m_hold.SetBlocked(false);
        return;
    }
    connect(m_page, &SettingItemBaseWidget::SigSaveSucceed, this, &SettingsPageArea::HandleSaved);
    connect(m_page, &SettingItemBaseWidget::SigSaveFailed, this, &SettingsPageArea::HandleFailed);
    new KeyboardAccess(m_page, [page = m_page.data()](const QWidget* widget) {
        return widget != page && qobject_cast<const SettingItemBaseWidget*>(widget) != nullptr;
    });
    m_sheet->layout()->addWidget(m_page);
    m_page->show();
    new AccessibleNames(m_page);
    new ReadableLabels(m_page);
    m_hold.SetPage(m_page);
    if (loses) {
        m_saved = false;
        m_status->SetLost();
    } else if (m_reason == Reason::LoadAgain) {
        m_status->Reset();
    }
    if (m_loading.isEmpty()) {
        m_status->SetStale(false);
        ReleaseSoon();
    }
}

void SettingsPageArea::HandleSaved()
{
    m_saved = m_hold.HasHeld();
    if (m_saved) {
        m_status->Reset(); // the outcome of what waits counts, if it has one
    } else {
        m_status->SetSaved();
    }
}

void SettingsPageArea::HandleFailed()
{
    m_saved = false;
    m_status->SetFailed(m_code, m_description);
    m_code.clear();
    m_description.clear();
}

void SettingsPageArea::HandleInputLost()
{
    m_saved = false;
    // An unsaved change that still stands on the page is not gone, and matters more.
    if (!IsUnsaved()) {
        m_status->SetLost();
    }
}

void SettingsPageArea::HandleBusy(bool busy)
{
    m_status->SetBusy(busy);
    if (busy) {
        return;
    }
    if (std::exchange(m_saved, false)) {
        m_status->SetSaved();
    }
    Q_EMIT SigSettled();
}

void SettingsPageArea::HandleStart(quint64 call, bool isWrite)
{
    if (m_making) {
        m_loading.insert(call);
    }
    if (!isWrite && (m_making || m_hold.IsInInput())) {
        m_reads.insert(call);
    }
}

void SettingsPageArea::HandleServedFromCache(quint64 call)
{
    if (!m_reads.contains(call) || m_page == nullptr) {
        return;
    }
    // The page writes whole lists, and these may be older than what is stored.
    m_stale = true;
    m_page->setEnabled(false);
}

void SettingsPageArea::HandleEnd(quint64 call)
{
    const bool wasRead = m_reads.remove(call);
    const bool wasLoading = m_loading.remove(call);
    if (wasRead && m_loading.isEmpty()) {
        m_status->SetStale(m_stale); // until then the status of the page before stays
    }
    if (wasLoading && m_loading.isEmpty() && !m_makeTimer->isActive()) {
        ReleaseSoon();
    }
}

void SettingsPageArea::ReleaseSoon()
{
    // A layout shows a new widget with the next events, and it cannot have the focus before.
    QMetaObject::invokeMethod(this, &SettingsPageArea::Release, Qt::QueuedConnection);
}

void SettingsPageArea::Release()
{
    if (!m_loading.isEmpty() || m_makeTimer->isActive()) {
        return; // the page is being rebuilt again
    }
    if (m_focusPlace && m_page != nullptr && QApplication::focusWidget() == nullptr) {
        if (QWidget* const focus = m_focusPlace->FindIn(m_page)) {
            focus->setFocus(Qt::OtherFocusReason);
        }
    }
    m_focusPlace.reset();
    m_hold.SetBlocked(false);
    if (m_page != nullptr) {
        Q_EMIT SigReady(m_stale);
    }
}

void SettingsPageArea::Adjust()
{
    const auto scaled = &DpiTool::ScaleDefault;
    m_title->setText(SettingsPageFaces::GetTitle(m_entry));
    QFont font = QApplication::font();
    font.setPixelSize(qRound(QFontInfo(font).pixelSize() * 1.5));
    font.setWeight(QFont::DemiBold);
    m_title->setFont(font);
    layout()->setContentsMargins(0, 0, 0, 0);
    layout()->setSpacing(0);
    auto* const heading = layout()->itemAt(0)->layout();
    heading->setContentsMargins(scaled(32), scaled(24), scaled(32), scaled(12));
    heading->setSpacing(scaled(16));
    m_sheet->layout()->setContentsMargins(scaled(32), scaled(4), scaled(32), scaled(24));
    // A line of text is hard to read, and a row hard to follow, over the whole width of a large screen.
    m_sheet->setMaximumWidth(scaled(WidestPage));
}
