#ifndef ZELMORA_EDITOR_VALUEDELEGATE_H
#define ZELMORA_EDITOR_VALUEDELEGATE_H

#include <QStyledItemDelegate>

/// The cell in which a value is edited. It refuses what a settings file cannot hold in a value, with a reason beside
/// the cell; what was typed or pasted does not get in.
class ValueDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

#endif
