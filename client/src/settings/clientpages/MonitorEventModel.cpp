#include "clientpages/MonitorEventModel.h"

#include <QtCore/QLocale>

namespace {

enum Column
{
    Time,
    Event,
    Page,
    Parameters,
    ColumnCount
};

} // namespace

MonitorEventModel::MonitorEventModel(QObject* parent) : QAbstractTableModel(parent) {}

MonitorEventModel::~MonitorEventModel() = default;

void MonitorEventModel::SetEvents(const QVector<MonitorEvent>& events)
{
    beginResetModel();
    m_events = events;
    endResetModel();
}

void MonitorEventModel::Retranslate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}

int MonitorEventModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_events.size();
}

int MonitorEventModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MonitorEventModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return QVariant();
    }
    const MonitorEvent& event = m_events.at(m_events.size() - 1 - index.row());
    QString text;
    switch (index.column()) {
    case Time:
        text = QLocale().toString(event.time.toLocalTime(), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        break;
    case Event:
        text = event.id;
        break;
    case Page:
        text = event.page;
        break;
    case Parameters:
        text = event.parameters.join(QStringLiteral(", "));
        break;
    default:
        break;
    }
    // Tool tips guess whether they are HTML; escaped in a paragraph there is nothing to guess.
    return role == Qt::ToolTipRole ? QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()) : text;
}

QVariant MonitorEventModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return QVariant();
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter));
    }
    if (role != Qt::DisplayRole) {
        return QVariant();
    }
    switch (section) {
    case Time:
        return tr("Time");
    case Event:
        return tr("Event");
    case Page:
        return tr("Page");
    default:
        return tr("Parameters");
    }
}
