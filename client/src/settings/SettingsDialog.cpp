#include "settings/SettingsDialog.h"

#include "AccessibleNames.h"
#include "PageListDelegate.h"
#include "SettingsCatalog.h"
#include "SettingsPageArea.h"
#include "SettingsPageFaces.h"
#include "clientpages/ClientSettingFactory.h"
#include "gateway/HttpManagerProxy.h"

#include "look/SymbolicIcon.h"

#include "base-ui/PackagedMsgBox.h"
#include "base-ui/TLLineEdit.h"
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
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QShortcut>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr QSize RoomySize(920, 660);    // [px, unscaled]
constexpr QSize SmallestSize(640, 420); // [px, unscaled]
constexpr double ShareOfScreen = 0.9;
constexpr int ListWidth = 220;          // [px, unscaled]
constexpr int EntryRole = Qt::UserRole; // the entry of a line of the list; -1: a gap between groups

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
    , m_search(new TLLineEdit)
    , m_list(new QListWidget)
    , m_nothing(new QLabel)
    , m_stack(new QStackedWidget)
{
    setObjectName(QStringLiteral("settings_dialog"));
    m_factories.append(m_own.get());
    m_factories += factories;
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

    m_search->setObjectName(QStringLiteral("settings_search"));
    m_list->setObjectName(QStringLiteral("settings_list"));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setItemDelegate(new PageListDelegate(m_list));
    m_list->setTabKeyNavigation(false);
    m_nothing->setObjectName(QStringLiteral("settings_nothing"));
    m_nothing->setTextFormat(Qt::PlainText);
    m_nothing->setWordWrap(true);
    m_nothing->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_nothing->hide();
    m_stack->setObjectName(QStringLiteral("settings_stack"));

    auto* side = new QWidget;
    side->setObjectName(QStringLiteral("settings_side"));
    side->setAttribute(Qt::WA_StyledBackground);
    auto* column = new QVBoxLayout(side);
    column->addWidget(m_search);
    column->addWidget(m_nothing);
    column->addWidget(m_list, 1);
    auto* row = new QHBoxLayout(GetContentWidget());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(side);
    row->addWidget(m_stack, 1);

    connect(m_search, &QLineEdit::textChanged, this, &SettingsDialog::Search);
    connect(m_list, &QListWidget::currentRowChanged, this, [this] {
        SelectPage();
        if (m_services.savePage && m_current >= 0 && m_search->text().isEmpty()) {
            m_services.savePage(KeyOf(m_entries.at(m_current).id));
        }
    });
    qApp->installEventFilter(this);
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_search, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    Retranslate();
    Adjust();
}

SettingsDialog::~SettingsDialog()
{
    // The pages go while what they were made with is there.
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
    m_search->clear();
    for (int i = 0; i < m_list->count(); ++i) {
        const int entry = m_list->item(i)->data(EntryRole).toInt();
        if (entry >= 0 && m_entries.at(entry).id == id) {
            m_list->setCurrentRow(i);
        }
    }
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
        const bool may =
            MayDropUnsaved(tr("A change could not be saved. It is lost when you close the settings."),
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
            Receive(opened);
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
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape && m_search->hasFocus() && !m_search->text().isEmpty()) {
        m_search->clear();
    } else if ((isEnter || event->key() == Qt::Key_Down) && m_search->hasFocus()) {
        m_list->setFocus(Qt::TabFocusReason);
    } else if (!isEnter) {
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

void SettingsDialog::Receive(TLBaseDialog* opened)
{
    // The dialogs that pages open bring no names for screen readers either.
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
    // Pages know the client's window only, which may be far from where the user looks.
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
    m_current = found != m_entries.cend() ? static_cast<int>(found - m_entries.cbegin()) : -1;
    const QSignalBlocker quiet(m_search);
    m_search->clear();
    Search();
    const QByteArray geometry = m_services.loadGeometry ? m_services.loadGeometry() : QByteArray();
    if (!restoreGeometry(geometry)) {
        resize(Scaled(RoomySize).boundedTo(screen()->availableSize() * ShareOfScreen));
    }
    m_list->setFocus(Qt::OtherFocusReason);
}

void SettingsDialog::Search()
{
    const QString word = m_search->text().trimmed();
    int row = -1;
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        int group = 0;
        for (int i = 0; i < m_entries.size(); ++i) {
            const SettingsPageEntry& entry = m_entries.at(i);
            if (!SettingsCatalog::IsFound(entry, word)) {
                continue;
            }
            if (m_list->count() > 0 && entry.id.GetGroup() != group) {
                auto* gap = new QListWidgetItem(m_list);
                gap->setFlags(Qt::NoItemFlags);
                gap->setData(EntryRole, -1);
            }
            group = entry.id.GetGroup();
            auto* item = new QListWidgetItem(SymbolicIcon::Make(SettingsPageFaces::GetIcon(entry.id)),
                                             SettingsPageFaces::GetTitle(entry), m_list);
            item->setData(EntryRole, i);
            if (row < 0 || i == m_current) {
                row = m_list->count() - 1;
            }
        }
    }
    Adjust();
    m_nothing->setVisible(m_list->count() == 0);
    m_list->setVisible(m_list->count() > 0);
    {
        const QSignalBlocker quiet(m_list);
        m_list->setCurrentRow(row);
    }
    SelectPage();
}

void SettingsDialog::SelectPage()
{
    const QListWidgetItem* const item = m_list->currentItem();
    const int entry = item != nullptr ? item->data(EntryRole).toInt() : -1;
    if (entry < 0) {
        return;
    }
    m_current = entry;
    SettingsPageArea* const area = AreaOf(entry);
    m_stack->setCurrentWidget(area);
    area->SetKeyword(m_search->text().trimmed());
}

SettingsPageArea* SettingsDialog::AreaOf(int entry)
{
    SettingsPageArea*& area = m_areas[entry];
    if (area == nullptr) {
        area = new SettingsPageArea(m_entries.at(entry), m_calls, m_search->text().trimmed());
        m_stack->addWidget(area);
        connect(area, &SettingsPageArea::SigSettled, this, &SettingsDialog::TakeSettled,
                Qt::QueuedConnection);
    }
    return area;
}

void SettingsDialog::ChooseSafely(Choice choice, const std::function<void()>& choose)
{
    m_choices[choice] = choose;
    TakeSettled();
}

void SettingsDialog::TakeSettled()
{
    if (IsBusy() || m_asking) {
        return;
    }
    const QPointer<SettingsDialog> self(this);
    if (m_closing) {
        m_closing = false;
        reject(); // asks about what could not be saved
        return;   // a choice that waits comes with the end of the dialog, or in its turn
    }
    if (m_choices.empty()) {
        return;
    }
    const bool may = MayDropUnsaved(
        tr("A change could not be saved. It is lost when the pages are shown anew for this choice."),
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
    // What was settled or wanted meanwhile has waited for the answer.
    QMetaObject::invokeMethod(this, &SettingsDialog::TakeSettled, Qt::QueuedConnection);
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
    const auto scaled = &DpiTool::ScaleDefault;
    setMinimumSize(Scaled(SmallestSize).boundedTo(screen()->availableSize() * ShareOfScreen));
    QWidget* const side = m_list->parentWidget();
    side->setFixedWidth(scaled(ListWidth));
    side->layout()->setContentsMargins(scaled(12), scaled(20), scaled(12), scaled(12));
    side->layout()->setSpacing(scaled(14));
    m_list->setIconSize(QSize(scaled(18), scaled(18)));
    for (int i = 0; i < m_list->count(); ++i) {
        QListWidgetItem* const item = m_list->item(i);
        const bool isGap = item->data(EntryRole).toInt() < 0;
        item->setSizeHint(QSize(0, isGap ? scaled(13) : scaled(36)));
    }
}

void SettingsDialog::Retranslate()
{
    SetTitleText(tr("Settings"));
    m_search->setPlaceholderText(tr("Search settings"));
    m_search->setAccessibleName(tr("Search settings"));
    m_list->setAccessibleName(tr("Pages"));
    m_nothing->setText(tr("Nothing found"));
    for (int i = 0; i < m_list->count(); ++i) {
        QListWidgetItem* const item = m_list->item(i);
        const int entry = item->data(EntryRole).toInt();
        if (entry >= 0) {
            item->setText(SettingsPageFaces::GetTitle(m_entries.at(entry)));
        }
    }
}
