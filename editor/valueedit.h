#ifndef ZELMORA_EDITOR_VALUEEDIT_H
#define ZELMORA_EDITOR_VALUEEDIT_H

#include <QLineEdit>

/// A line in which a value is typed, of any length. It refuses what a settings file cannot hold in a value, with a
/// reason beside it: what is typed or pasted does not get in. Signs that the value has already, from an XML file, may
/// be taken out one after the other.
class ValueEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit ValueEdit(QWidget* parent = nullptr);

    /// Shows @p value, whatever it holds. Nothing happens where it is shown already.
    void setValue(const QString& value);
};

#endif
