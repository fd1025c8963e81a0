#include "editor/valuedelegate.h"

#include <QLineEdit>
#include <QToolTip>
#include <QValidator>

#include <limits>

namespace {

int unstorableCharacters(const QString& value)
{
    return value.count(QLatin1Char('"')) + value.count(QLatin1Char(';'));
}

/// Refuses what would add a character that cannot be stored. Those that a value has already, from an XML file, may be
/// taken out one after the other.
class ValueValidator : public QValidator {
public:
    ValueValidator(const QString& value, QObject* parent)
        : QValidator(parent)
        , allowed(unstorableCharacters(value))
    {
    }

    State validate(QString& value, int&) const override
    {
        const int found = unstorableCharacters(value);
        if (found > allowed)
            return Invalid;
        allowed = found;
        return Acceptable;
    }

private:
    mutable int allowed;
};

} // namespace

QWidget* ValueDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    auto* const editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setMaxLength(std::numeric_limits<int>::max()); // the usual one cuts a long value
    editor->setValidator(new ValueValidator(index.data(Qt::EditRole).toString(), editor));
    connect(editor, &QLineEdit::inputRejected, editor, [editor] {
        QToolTip::showText(
            editor->mapToGlobal(QPoint(0, editor->height())),
            QObject::tr("A value cannot hold a quotation mark or a semicolon:\nthe one would be dropped, "
                        "the other would end the value."),
            editor);
    });
    return editor;
}
