// What differs between two configurations, a row a cell. User-interface thread.
#pragma once

#include <QLabel>
#include <QTreeWidget>
#include <QWidget>
#include <vector>

#include "config/BlockComparison.h"

namespace zelorgas {

class CDifferenceTable final : public QWidget {
  Q_OBJECT

 public:
  explicit CDifferenceTable(QWidget* parent = nullptr);

  // `first` and `second` name the two that were compared.
  void Show(const QString& first, const QString& second,
            const std::vector<BlockDifference>& differences);

 signals:
  // The person has seen enough.
  void Closed();

 private:
  QLabel* heading_;
  QTreeWidget* table_;
};

}  // namespace zelorgas
