#include "app/monitor_history_model.hpp"

#include <QColor>

#include "app/line_monitor_window.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

namespace {
constexpr int kColumns = 7;
}

MonitorHistoryModel::MonitorHistoryModel(LineMonitorWindow& tool, QObject* parent)
    : QAbstractTableModel(parent), tool_(tool) {}

int MonitorHistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int MonitorHistoryModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant MonitorHistoryModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const diagnostics::MonitorEntry& e = tool_.history[static_cast<std::size_t>(index.row())];
    if (role == Qt::ForegroundRole && !e.decoded) return QColor(Qt::darkGray);
    if (role != Qt::DisplayRole) return {};
    const diagnostics::MonitorFields& f = e.fields;
    const std::string* column[kColumns] = {&f.time,   &f.kind, &f.modulo,     &f.ingresso,
                                           &f.valore, &f.nome, &f.descrizione};
    return qs(*column[index.column()]);
}

QVariant MonitorHistoryModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    using texts::Text;
    const Text keys[kColumns] = {
        Text::MONITOR_TIME,  Text::MONITOR_KIND, Text::MONITOR_SENDER,     Text::MONITOR_INPUT,
        Text::MONITOR_VALUE, Text::MONITOR_NAME, Text::MONITOR_DESCRIPTION};
    return qs(tool_.texts().text(keys[section]));
}

void MonitorHistoryModel::rows_added(int first, int count) {
    beginInsertRows({}, first, first + count - 1);
    rows_ = first + count;
    endInsertRows();
}

void MonitorHistoryModel::cleared() {
    beginResetModel();
    rows_ = static_cast<int>(tool_.history.size());
    endResetModel();
}

}  // namespace filo::app
