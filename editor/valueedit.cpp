#include "editor/valueedit.h"

#include <QToolTip>
#include <QValidator>

#include <limits>

namespace {

int unstorableCharacters(const QString& value)
{
    return value.count(QLatin1Char('"')) + value.count(QLatin1Char(';'));
}

/// Refuses what would add a character that cannot be stored.
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

ValueEdit::ValueEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setMaxLength(std::numeric_limits<int>::max()); // the usual one cuts a long value
    setValidator(new ValueValidator(QString(), this));
    connect(this, &QLineEdit::inputRejected, this, [this] {
        QToolTip::showText(
            mapToGlobal(QPoint(0, height())),
            QObject::tr("A value cannot hold a quotation mark or a semicolon:\nthe one would be dropped, "
                        "the other would end the value."),
            this);
    });
}

void ValueEdit::setValue(const QString& value)
{
    if (value == text())
        return;
    const QValidator* const before = validator();
    setValidator(new ValueValidator(value, this));
    delete before;
    setText(value);
}
