#pragma once
// The monitor's full history as a table model: rows are read from the tool
// object as the view asks, so a long history costs nothing to show.
#include <QAbstractTableModel>

namespace filo::app {

class LineMonitorWindow;

class MonitorHistoryModel final : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit MonitorHistoryModel(LineMonitorWindow& tool, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // The tool added rows at its end, or emptied the history.
    void rows_added(int first, int count);
    void cleared();

  private:
    LineMonitorWindow& tool_;
    int rows_ = 0;  // the rows announced to the views
};

}  // namespace filo::app
