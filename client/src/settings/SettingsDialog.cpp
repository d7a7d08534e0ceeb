#include "settings/SettingsDialog.h"

#include "AccessibleNames.h"
#include "SettingsCatalog.h"
#include "SettingsPageArea.h"
#include "SettingsPageList.h"
#include "clientpages/ClientSettingFactory.h"
#include "gateway/HttpManagerProxy.h"

#include "base-ui/PackagedMsgBox.h"
#include "base-ui/TLMask.h"
#include "base-ui/TLMaskWidget.h"
#include "base-ui/TitleType.h"
#include "base/DpiTool.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QShortcut>
#include <QtWidgets/QStackedWidget>

#include <algorithm>
#include <utility>

namespace {

constexpr QSize RoomySize(920, 660);    // [px, unscaled]
constexpr QSize SmallestSize(640, 420); // [px, unscaled]
constexpr double ShareOfScreen = 0.9;

QSize Scaled(const QSize& size)
{
    return {DpiTool::ScaleDefault(size.width()), DpiTool::ScaleDefault(size.height())};
}

QString KeyOf(SettingWidgetId id)
{
    return QStringLiteral("%1,%2").arg(id.GetGroup()).arg(id.GetOrder());
}

} // namespace

SettingsDialog::SettingsDialog(const SettingsServices& services,
                               const QVector<ISysSettingFactory*>& factories, QWidget* parent)
    : TLBaseDialog(parent, Qt::WindowCloseButtonHint, TitleType::System)
    , m_services(services)
    , m_own(std::make_unique<ClientSettingFactory>(&m_services))
    , m_calls(new HttpManagerProxy(this))
    , m_list(new SettingsPageList)
    , m_stack(new QStackedWidget)
{
    setObjectName(QStringLiteral("settings_dialog"));
    m_factories.append(m_own.get());
    m_factories += factories;
    WrapChoices();

    m_stack->setObjectName(QStringLiteral("settings_stack"));
    auto* row = new QHBoxLayout(GetContentWidget());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_list);
    row->addWidget(m_stack, 1);

    connect(m_list, &SettingsPageList::SigShown, this, &SettingsDialog::ShowEntry);
    connect(m_list, &SettingsPageList::SigChosen, this, [this](int entry) {
        if (m_services.savePage) {
            m_services.savePage(KeyOf(m_entries.at(entry).id));
        }
    });
    qApp->installEventFilter(this);
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_list, &SettingsPageList::FocusSearch);
    Retranslate();
    Adjust();
}

SettingsDialog::~SettingsDialog()
{
    // The pages go before what they were made with.
    qDeleteAll(m_areas);
    m_areas.clear();
}

void SettingsDialog::SetTheme(Theme theme)
{
    m_services.theme = theme;
    m_own->ShowChoices();
}

void SettingsDialog::SetLanguage(const QString& language)
{
    m_services.language = language;
    m_own->ShowChoices();
}

void SettingsDialog::SetScale(int scale)
{
    m_services.scale = scale;
    m_own->ShowChoices();
}

void SettingsDialog::UpdateEvents()
{
    m_own->ShowEvents();
}

void SettingsDialog::LoadAgain()
{
    for (SettingsPageArea* const area : qAsConst(m_areas)) {
        if (area != nullptr) {
            area->LoadIfStale();
        }
    }
}

void SettingsDialog::ShowPage(SettingWidgetId id)
{
    m_list->Choose(id);
}

void SettingsDialog::CloseAtEnd()
{
    m_atEnd = true;
    reject();
}

void SettingsDialog::AdjustForDpi()
{
    Adjust();
    for (SettingsPageArea* const area : qAsConst(m_areas)) {
        if (area != nullptr) {
            area->FollowSurroundings();
        }
    }
}

void SettingsDialog::reject()
{
    for (SettingsPageArea* const area : qAsConst(m_areas)) {
        if (area != nullptr && !m_closing) {
            area->SaveData();
        }
    }
    if (IsBusy() && !m_closing) {
        m_closing = true; // as soon as everything is answered
        return;
    }
    if (!m_closing) {
        const QPointer<SettingsDialog> self(this);
        const bool may = MayDropUnsaved(tr("A change could not be saved. Closing the settings discards it."),
                                        {tr("Close anyway"), tr("Keep open")});
        if (!self || !may || !isVisible()) {
            return;
        }
    }
    Close();
}

bool SettingsDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && watched != this) {
        if (auto* const opened = qobject_cast<TLBaseDialog*>(watched)) {
            HandleOpened(opened);
        }
    }
    return TLBaseDialog::eventFilter(watched, event);
}

void SettingsDialog::changeEvent(QEvent* event)
{
    TLBaseDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
        for (SettingsPageArea* const area : qAsConst(m_areas)) {
            if (area != nullptr) {
                area->FollowSurroundings();
            }
        }
    } else if (event->type() == QEvent::FontChange) {
        Adjust();
    }
}

void SettingsDialog::keyPressEvent(QKeyEvent* event)
{
    // Enter presses no default button here.
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        TLBaseDialog::keyPressEvent(event);
    }
}

void SettingsDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        Load();
    }
    TLBaseDialog::showEvent(event);
}

void SettingsDialog::HandleOpened(TLBaseDialog* opened)
{
    // Dialogs of pages bring no names for screen readers either.
    if (opened->findChild<AccessibleNames*>() == nullptr) {
        new AccessibleNames(opened);
    }
    const bool isOfPage = std::any_of(m_areas.cbegin(), m_areas.cend(), [](const SettingsPageArea* area) {
        return area != nullptr && area->IsPageDealing();
    });
    const QWidget* const parent = opened->parentWidget();
    if (!isOfPage || (parent != nullptr && parent->window() == this)) {
        return;
    }
    // Pages know only the client's window, which may be far from where the user looks.
    TLMask::Instance()->InitMask(this, this)->ShowFor(opened);
    QRect place(QPoint(), opened->size());
    place.moveCenter(geometry().center());
    const QRect available = screen()->availableGeometry();
    place.moveRight(qMin(place.right(), available.right()));
    place.moveBottom(qMin(place.bottom(), available.bottom()));
    place.moveLeft(qMax(place.left(), available.left()));
    place.moveTop(qMax(place.top(), available.top()));
    opened->move(place.topLeft());
    if (opened->windowHandle() != nullptr) {
        opened->windowHandle()->setTransientParent(windowHandle());
    }
}

void SettingsDialog::Load()
{
    m_closing = false;
    m_atEnd = false;
    m_calls->SetOpen(true);
    qDeleteAll(m_areas);
    m_areas.clear();
    m_entries = SettingsCatalog::Build(m_factories, m_own.get());
    m_areas.resize(m_entries.size());
    const QString last = m_services.loadPage ? m_services.loadPage() : QString();
    const auto found =
        std::find_if(m_entries.cbegin(), m_entries.cend(),
                     [&last](const SettingsPageEntry& entry) { return KeyOf(entry.id) == last; });
    m_list->SetEntries(m_entries,
                       found != m_entries.cend() ? static_cast<int>(found - m_entries.cbegin()) : -1);
    const QByteArray geometry = m_services.loadGeometry ? m_services.loadGeometry() : QByteArray();
    if (!restoreGeometry(geometry)) {
        resize(Scaled(RoomySize).boundedTo(screen()->availableSize() * ShareOfScreen));
    }
    m_list->FocusList();
}

void SettingsDialog::ShowEntry(int entry)
{
    SettingsPageArea* const area = AreaOf(entry);
    m_stack->setCurrentWidget(area);
    area->SetKeyword(m_list->GetKeyword());
}

SettingsPageArea* SettingsDialog::AreaOf(int entry)
{
    SettingsPageArea*& area = m_areas[entry];
    if (area == nullptr) {
        area = new SettingsPageArea(m_entries.at(entry), m_calls, m_list->GetKeyword());
        m_stack->addWidget(area);
        connect(area, &SettingsPageArea::SigReady, this,
                [this, id = m_entries.at(entry).id](bool cached) { Q_EMIT SigPageReady(KeyOf(id), cached); });
        connect(area, &SettingsPageArea::SigSettled, this, &SettingsDialog::HandleSettled,
                Qt::QueuedConnection);
    }
    return area;
}

void SettingsDialog::ChooseSafely(Choice choice, const std::function<void()>& choose)
{
    m_choices[choice] = choose;
    HandleSettled();
}

void SettingsDialog::HandleSettled()
{
    if (IsBusy() || m_asking) {
        return;
    }
    const QPointer<SettingsDialog> self(this);
    if (m_closing) {
        m_closing = false;
        reject(); // asks about what could not be saved
        return;   // a choice that waits is applied when the dialog closes, or in its turn
    }
    if (m_choices.empty()) {
        return;
    }
    const bool may =
        MayDropUnsaved(tr("A change could not be saved. This choice reloads the pages and discards it."),
                       {tr("Continue"), tr("Cancel")});
    if (!self) {
        return;
    }
    const auto choices = std::exchange(m_choices, {});
    if (!may) {
        m_own->ShowChoices();
        return;
    }
    for (const auto& [choice, choose] : choices) {
        if (self) {
            choose();
        }
    }
}

bool SettingsDialog::MayDropUnsaved(const QString& question, const QStringList& buttons)
{
    if (m_atEnd || !IsUnsaved()) {
        return true;
    }
    const QPointer<SettingsDialog> self(this);
    m_asking = true;
    const auto answer =
        PackagedMsgBox::question(question, this, QMessageBox::Discard | QMessageBox::Cancel, buttons);
    if (!self) {
        return false;
    }
    m_asking = false;
    // Whatever was settled or chosen meanwhile has waited for the answer.
    QMetaObject::invokeMethod(this, &SettingsDialog::HandleSettled, Qt::QueuedConnection);
    return answer == QMessageBox::Discard;
}

bool SettingsDialog::IsBusy() const
{
    return std::any_of(m_areas.cbegin(), m_areas.cend(),
                       [](const SettingsPageArea* area) { return area != nullptr && area->IsBusy(); });
}

bool SettingsDialog::IsUnsaved() const
{
    return std::any_of(m_areas.cbegin(), m_areas.cend(),
                       [](const SettingsPageArea* area) { return area != nullptr && area->IsUnsaved(); });
}

void SettingsDialog::Close()
{
    m_closing = false;
    if (m_services.saveGeometry) {
        m_services.saveGeometry(saveGeometry());
    }
    // The key that closes may come from a page.
    for (SettingsPageArea* const area : qAsConst(m_areas)) {
        if (area != nullptr) {
            area->deleteLater();
        }
    }
    m_areas.fill(nullptr);
    m_calls->SetOpen(false);
    const QPointer<SettingsDialog> self(this);
    const auto choices = std::exchange(m_choices, {});
    TLBaseDialog::reject();
    for (const auto& [choice, choose] : choices) {
        if (self) {
            choose();
        }
    }
}

void SettingsDialog::Adjust()
{
    setMinimumSize(Scaled(SmallestSize).boundedTo(screen()->availableSize() * ShareOfScreen));
    m_list->Adjust();
}

void SettingsDialog::Retranslate()
{
    SetTitleText(tr("Settings"));
    m_list->Retranslate();
}

/// The choices go to the services once everything is settled, and the services say at once what was chosen.
void SettingsDialog::WrapChoices()
{
    if (m_services.chooseLanguage) {
        m_services.chooseLanguage = [this, chosen = m_services.chooseLanguage](const QString& language) {
            ChooseSafely(Choice::Language, [this, chosen, language] {
                m_services.language = language;
                chosen(language);
            });
        };
    }
    if (m_services.chooseScale) {
        m_services.chooseScale = [this, chosen = m_services.chooseScale](int scale) {
            ChooseSafely(Choice::Scale, [this, chosen, scale] {
                m_services.scale = scale;
                chosen(scale);
            });
        };
    }
    if (m_services.chooseTheme) {
        m_services.chooseTheme = [this, chosen = m_services.chooseTheme](Theme theme) {
            m_services.theme = theme;
            chosen(theme);
        };
    }
}
