#ifndef ZELMORA_EDITOR_VALUEDELEGATE_H
#define ZELMORA_EDITOR_VALUEDELEGATE_H

#include <QStyledItemDelegate>

/// The cell of a list in which a value is edited: a ValueEdit.
class ValueDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

#endif
