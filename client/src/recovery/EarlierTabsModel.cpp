#include "EarlierTabsModel.h"

#include "look/SymbolicIcon.h"

#include <QtCore/QLocale>

namespace {

// Rows of the first level have the internal id 0, others the number of their set, counted from 1.
constexpr quintptr SetLevel = 0;

QString GetReasonText(EarlierTabSet::Reason reason)
{
    switch (reason) {
    case EarlierTabSet::Reason::Offered:
        return EarlierTabsModel::tr("Offered at the next start and opened again.");
    case EarlierTabSet::Reason::Declined:
        return EarlierTabsModel::tr("Offered at the next start and declined.");
    case EarlierTabSet::Reason::Dropped:
        return EarlierTabsModel::tr("Open when the client ended, but never offered.");
    case EarlierTabSet::Reason::Unreadable:
        return EarlierTabsModel::tr("The saved record of these tabs is damaged.");
    case EarlierTabSet::Reason::NotRestored:
        return EarlierTabsModel::tr("Not all of these tabs could be reopened.");
    }
    return {};
}

QString GetCountText(int count)
{
    return count == 1 ? EarlierTabsModel::tr("1 tab")
                      : EarlierTabsModel::tr("%1 tabs").arg(QLocale().toString(count));
}

QString GetTitle(const TabRecord& tab)
{
    QString title = tab.title.simplified();
    if (!title.isEmpty()) {
        return title;
    }
    return tab.address.isEmpty() ? tab.routerUrl : tab.address.toDisplayString();
}

QString GetDetail(const TabRecord& tab)
{
    return tab.address.isEmpty() ? EarlierTabsModel::tr("App") : tab.address.toDisplayString();
}

/// A tool tip that is not rich text by accident: what it says comes from pages.
QString MakeToolTip(const QStringList& lines)
{
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
        .arg(lines.join(QLatin1Char('\n')).left(1000).toHtmlEscaped());
}

} // namespace

EarlierTabsModel::EarlierTabsModel(const QVector<EarlierTabSet>& sets, const PictureLoader& loadPicture,
                                   QObject* parent)
    : QAbstractItemModel(parent)
    , m_loadPicture(loadPicture)
    , m_pageIcon(SymbolicIcon::Make(QStringLiteral("globe")))
    , m_appIcon(SymbolicIcon::Make(QStringLiteral("app")))
{
    for (const EarlierTabSet& given : sets) {
        Set set{given.when, given.reason, given.incomplete, {}, 0};
        set.rows.reserve(static_cast<std::size_t>(given.tabs.size()));
        for (const TabRecord& tab : given.tabs) {
            set.rows.push_back({tab, false});
        }
        m_sets.push_back(std::move(set));
    }
}

QModelIndex EarlierTabsModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent)) {
        return {};
    }
    return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row() + 1) : SetLevel);
}

QModelIndex EarlierTabsModel::parent(const QModelIndex& child) const
{
    if (!child.isValid() || child.internalId() == SetLevel) {
        return {};
    }
    return createIndex(static_cast<int>(child.internalId()) - 1, 0, SetLevel);
}

int EarlierTabsModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) {
        return static_cast<int>(m_sets.size());
    }
    if (parent.internalId() != SetLevel || parent.column() > 0) {
        return 0;
    }
    return static_cast<int>(GetSet(parent).rows.size());
}

int EarlierTabsModel::columnCount(const QModelIndex& parent) const
{
    Q_UNUSED(parent)
    return 1;
}

QVariant EarlierTabsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const Set& set = GetSet(index);
    if (index.internalId() == SetLevel) {
        return GetSetData(set, role);
    }
    return GetTabData(set.rows[static_cast<std::size_t>(index.row())], index, role);
}

QVariant EarlierTabsModel::GetSetData(const Set& set, int role) const
{
    const int count = static_cast<int>(set.rows.size());
    const auto headline = [&set, count] {
        return tr("%1 – %2", "moment – number of tabs")
            .arg(GetWhenText(set.when, QDateTime::currentDateTime()), GetCountText(count));
    };
    const auto detail = [&set] {
        const QString reason = GetReasonText(set.reason);
        return set.incomplete ? tr("%1 Some could not be read and are missing.").arg(reason) : reason;
    };
    switch (role) {
    case Qt::DisplayRole:
        return headline();
    case DetailRole:
        return detail();
    case Qt::ToolTipRole:
        return MakeToolTip({headline(), detail()});
    case Qt::AccessibleTextRole:
        return headline();
    case Qt::AccessibleDescriptionRole:
        return detail();
    case Qt::CheckStateRole:
        if (count == 0) {
            return {};
        }
        return set.ticked == 0 ? Qt::Unchecked : set.ticked == count ? Qt::Checked : Qt::PartiallyChecked;
    default:
        return {};
    }
}

QVariant EarlierTabsModel::GetTabData(const Row& row, const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return GetTitle(row.tab);
    case DetailRole:
    case Qt::AccessibleDescriptionRole:
        return GetDetail(row.tab);
    case Qt::ToolTipRole:
        return MakeToolTip({GetTitle(row.tab), GetDetail(row.tab)});
    case Qt::DecorationRole:
        return GetIcon(row.tab, index);
    case Qt::CheckStateRole:
        return row.ticked ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool EarlierTabsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return false;
    }
    Tick(index, value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags EarlierTabsModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.data(Qt::CheckStateRole).isValid()) {
        flags |= Qt::ItemIsUserCheckable;
    }
    if (index.internalId() != SetLevel) {
        flags |= Qt::ItemNeverHasChildren;
    }
    return flags;
}

void EarlierTabsModel::Toggle(const QModelIndex& index)
{
    if (flags(index) & Qt::ItemIsUserCheckable) {
        Tick(index, index.data(Qt::CheckStateRole).toInt() != Qt::Checked);
    }
}

int EarlierTabsModel::GetTickedCount() const noexcept
{
    return m_ticked;
}

QVector<TabRecord> EarlierTabsModel::GetTicked() const
{
    QVector<TabRecord> ticked;
    ticked.reserve(m_ticked);
    for (const Set& set : m_sets) {
        for (const Row& row : set.rows) {
            if (row.ticked) {
                ticked.append(row.tab);
            }
        }
    }
    return ticked;
}

void EarlierTabsModel::Retranslate()
{
    const int last = rowCount() - 1;
    if (last < 0) {
        return;
    }
    Q_EMIT dataChanged(index(0, 0), index(last, 0));
    for (int i = 0; i <= last; ++i) {
        const QModelIndex set = index(i, 0);
        if (rowCount(set) > 0) {
            Q_EMIT dataChanged(index(0, 0, set), index(rowCount(set) - 1, 0, set));
        }
    }
}

QString EarlierTabsModel::GetWhenText(const QDateTime& when, const QDateTime& now)
{
    if (!when.isValid()) {
        return tr("At an unknown time");
    }
    const QLocale locale;
    const QDateTime local = when.toLocalTime();
    const QString time = locale.toString(local.time(), QLocale::ShortFormat);
    const qint64 days = local.date().daysTo(now.toLocalTime().date());
    if (days == 0) {
        return tr("Today at %1").arg(time);
    }
    if (days == 1) {
        return tr("Yesterday at %1").arg(time);
    }
    return tr("%1 at %2", "date at time").arg(locale.toString(local.date(), QLocale::ShortFormat), time);
}

const EarlierTabsModel::Set& EarlierTabsModel::GetSet(const QModelIndex& index) const
{
    const auto id = static_cast<std::size_t>(index.internalId());
    return m_sets[id == SetLevel ? static_cast<std::size_t>(index.row()) : id - 1];
}

QIcon EarlierTabsModel::GetIcon(const TabRecord& tab, const QModelIndex& index) const
{
    const bool isPage = tab.type == TabType::WebPage;
    const QIcon& placeholder = isPage ? m_pageIcon : m_appIcon;
    if (tab.iconUrl.isEmpty() || !m_loadPicture) {
        return placeholder;
    }
    QIcon known = m_icons.value(tab.iconUrl);
    if (!known.isNull()) {
        return known;
    }

    const bool asked = m_icons.contains(tab.iconUrl);
    QVector<QPersistentModelIndex>& waiting = m_waiting[tab.iconUrl];
    if (!waiting.contains(index)) {
        waiting.append(index);
    }
    if (!asked) {
        m_icons.insert(tab.iconUrl, QIcon());
        auto* self = const_cast<EarlierTabsModel*>(this);
        m_loadPicture(tab.iconUrl, self, [self, url = tab.iconUrl](const QPixmap& picture) {
            self->m_icons.insert(url, QIcon(picture));
            const auto rows = self->m_waiting.take(url);
            for (const QPersistentModelIndex& row : rows) {
                Q_EMIT self->dataChanged(row, row, {Qt::DecorationRole});
            }
        });
    }
    const QIcon icon = m_icons.value(tab.iconUrl);
    return icon.isNull() ? placeholder : icon;
}

void EarlierTabsModel::Tick(const QModelIndex& index, bool ticked)
{
    const bool isSet = index.internalId() == SetLevel;
    const QModelIndex setIndex = isSet ? index : index.parent();
    Set& set = m_sets[static_cast<std::size_t>(setIndex.row())];
    const int first = isSet ? 0 : index.row();
    const int last = isSet ? static_cast<int>(set.rows.size()) - 1 : index.row();
    const int before = set.ticked;
    for (int i = first; i <= last; ++i) {
        Row& row = set.rows[static_cast<std::size_t>(i)];
        set.ticked += int(ticked) - int(row.ticked);
        row.ticked = ticked;
    }
    if (set.ticked == before) {
        return;
    }
    m_ticked += set.ticked - before;
    Q_EMIT dataChanged(setIndex, setIndex, {Qt::CheckStateRole});
    Q_EMIT dataChanged(this->index(first, 0, setIndex), this->index(last, 0, setIndex), {Qt::CheckStateRole});
    Q_EMIT SigTickedChanged();
}
