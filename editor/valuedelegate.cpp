#include "editor/valuedelegate.h"

#include "editor/valueedit.h"

QWidget* ValueDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    auto* const editor = new ValueEdit(parent);
    editor->setFrame(false);
    editor->setValue(index.data(Qt::EditRole).toString());
    return editor;
}
