#include "SettingsPageList.h"

#include "PageListDelegate.h"
#include "SettingsCatalog.h"
#include "SettingsPageFaces.h"

#include "look/SymbolicIcon.h"

#include "base-ui/TLLineEdit.h"
#include "base/DpiTool.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int ListWidth = 220;          // [px, unscaled]
constexpr int EntryRole = Qt::UserRole; // the entry of a line of the list; -1: a gap between groups

int EntryOf(const QListWidgetItem* item)
{
    return item != nullptr ? item->data(EntryRole).toInt() : -1;
}

} // namespace

SettingsPageList::SettingsPageList(QWidget* parent)
    : QWidget(parent)
    , m_search(new TLLineEdit(this))
    , m_nothing(new QLabel(this))
    , m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("settings_side"));
    setAttribute(Qt::WA_StyledBackground);
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

    auto* column = new QVBoxLayout(this);
    column->addWidget(m_search);
    column->addWidget(m_nothing);
    column->addWidget(m_list, 1);

    connect(m_search, &QLineEdit::textChanged, this, &SettingsPageList::Search);
    connect(m_list, &QListWidget::currentRowChanged, this, [this] {
        ShowCurrent();
        if (m_current >= 0 && m_search->text().isEmpty()) {
            Q_EMIT SigChosen(m_current);
        }
    });
    Retranslate();
    Adjust();
}

SettingsPageList::~SettingsPageList() = default;

void SettingsPageList::SetEntries(const QVector<SettingsPageEntry>& entries, int current)
{
    m_entries = entries;
    m_current = current;
    const QSignalBlocker quiet(m_search);
    m_search->clear();
    Search();
}

void SettingsPageList::Choose(SettingWidgetId id)
{
    m_search->clear();
    for (int i = 0; i < m_list->count(); ++i) {
        const int entry = EntryOf(m_list->item(i));
        if (entry >= 0 && m_entries.at(entry).id == id) {
            m_list->setCurrentRow(i);
        }
    }
}

QString SettingsPageList::GetKeyword() const
{
    return m_search->text().trimmed();
}

void SettingsPageList::FocusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void SettingsPageList::FocusList()
{
    m_list->setFocus(Qt::OtherFocusReason);
}

void SettingsPageList::Adjust()
{
    const auto scaled = &DpiTool::ScaleDefault;
    setFixedWidth(scaled(ListWidth));
    layout()->setContentsMargins(scaled(12), scaled(20), scaled(12), scaled(12));
    layout()->setSpacing(scaled(14));
    m_list->setIconSize(QSize(scaled(18), scaled(18)));
    for (int i = 0; i < m_list->count(); ++i) {
        QListWidgetItem* const item = m_list->item(i);
        item->setSizeHint(QSize(0, scaled(EntryOf(item) < 0 ? 13 : 36)));
    }
}

void SettingsPageList::Retranslate()
{
    m_search->setPlaceholderText(tr("Search settings"));
    m_search->setAccessibleName(tr("Search settings"));
    m_list->setAccessibleName(tr("Pages"));
    m_nothing->setText(tr("Nothing found"));
    for (int i = 0; i < m_list->count(); ++i) {
        QListWidgetItem* const item = m_list->item(i);
        const int entry = EntryOf(item);
        if (entry >= 0) {
            item->setText(SettingsPageFaces::GetTitle(m_entries.at(entry)));
        }
    }
}

void SettingsPageList::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape && m_search->hasFocus() && !m_search->text().isEmpty()) {
        m_search->clear();
    } else if ((isEnter || event->key() == Qt::Key_Down) && m_search->hasFocus()) {
        m_list->setFocus(Qt::TabFocusReason);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void SettingsPageList::Search()
{
    {
        const QSignalBlocker quiet(m_list);
        const int row = AddLines();
        Adjust();
        m_nothing->setVisible(m_list->count() == 0);
        m_list->setVisible(m_list->count() > 0);
        m_list->setCurrentRow(row);
    }
    ShowCurrent();
}

/// Returns the row to choose; -1: no page was found.
int SettingsPageList::AddLines()
{
    m_list->clear();
    const QString word = GetKeyword();
    int row = -1;
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
    return row;
}

void SettingsPageList::ShowCurrent()
{
    const int entry = EntryOf(m_list->currentItem());
    if (entry >= 0) {
        m_current = entry;
        Q_EMIT SigShown(entry);
    }
}
