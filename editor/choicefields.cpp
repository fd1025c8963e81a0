#include "editor/choicefields.h"

#include "editor/icons.h"
#include "settings/settinghelp.h"
#include "toolkit/literals.h"
#include "toolkit/numbertext.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

using settings::absenceText;
using settings::SettingRow;
using toolkit::operator""_L1;
using vocabulary::SettingKind;

namespace {

/// In grey where the setting is absent.
void colour(QWidget& widget, bool isAbsent)
{
    QPalette palette; // that of the program
    const QColor grey = icons::muted(palette);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        if (isAbsent)
            palette.setColor(role, grey);
    }
    widget.setPalette(palette);
}

/// What absence means is said below the field, where it is more than a value.
QString notSet(const vocabulary::Setting& setting)
{
    return setting.absence ? QObject::tr("not set") : QObject::tr("not set: %1").arg(absenceText(setting));
}

bool isKind(const SettingRow& row, SettingKind kind)
{
    return row.setting->kind == kind && row.fitsItsField();
}

} // namespace

FlagField::FlagField()
    : box(new QCheckBox)
{
    setKeys(box);
    connect(box, &QCheckBox::clicked, this,
            [this](bool isChecked) { emit chosen(isChecked ? QStringLiteral("true") : QStringLiteral("false")); });
}

bool FlagField::isFor(const SettingRow& row) const
{
    return isKind(row, SettingKind::Flag);
}

void FlagField::show(const SettingRow& row)
{
    box->setChecked(row.written == QStringLiteral("true"));
    box->setText(row.isAbsent() ? notSet(*row.setting) : *row.written);
    colour(*box, row.isAbsent());
}

WordField::WordField(const vocabulary::Setting& setting)
    : list(new QComboBox)
{
    setKeys(list);
    list->addItem(notSet(setting));
    for (const QLatin1String word : setting.words)
        list->addItem(word);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(14);
    connect(list, qOverload<int>(&QComboBox::activated), this, &WordField::tellChoice);
}

void WordField::tellChoice(int index)
{
    if (index == shownIndex)
        return; // the file may have the word in other letter cases
    if (index == 0)
        emit cleared();
    else
        emit chosen(list->itemText(index));
}

bool WordField::isFor(const SettingRow& row) const
{
    return isKind(row, SettingKind::Word);
}

void WordField::show(const SettingRow& row)
{
    shownIndex = row.isAbsent() ? 0 : list->findText(*row.written, Qt::MatchFixedString); // in any letter case
    list->setCurrentIndex(shownIndex);
    colour(*list, row.isAbsent());
}

NumberBox::NumberBox(int least, int greatest)
    : absentValue(least)
{
    setRange(least - 1, greatest);
    setGroupSeparatorShown(false);
    setLocale(QLocale::c()); // as the file has them
}

void NumberBox::setAbsence(const QString& text, int value)
{
    setSpecialValueText(text);
    absentValue = value;
}

void NumberBox::stepBy(int steps)
{
    const qint64 wanted = qint64(isAbsent() ? absentValue : value()) + steps; // may be beyond an int
    setValue(static_cast<int>(qBound(qint64 {minimum()} + 1, wanted, qint64 {maximum()})));
    selectAll();
}

/// Nothing is absence, and a blank is no way to get there; what means it is not typed.
QValidator::State NumberBox::validate(QString& text, int& position) const
{
    if (text.isEmpty() || text == specialValueText())
        return QValidator::Acceptable;
    return text.at(0).isDigit() ? QSpinBox::validate(text, position) : QValidator::Invalid;
}

int NumberBox::valueFromText(const QString& text) const
{
    return text.isEmpty() || text == specialValueText() ? minimum() : QSpinBox::valueFromText(text);
}

NumberField::NumberField(const vocabulary::Setting& setting)
    : box(new NumberBox(setting.least, setting.greatest))
{
    setKeys(box);
    const bool isNumber = !setting.absent.isEmpty();
    box->setAbsence(notSet(setting), isNumber ? toolkit::toInteger(setting.absent) : setting.least);
    box->setToolTip(QObject::tr("From %1 to %2").arg(setting.least).arg(setting.greatest));
    connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &NumberField::tellNumber);
}

void NumberField::tellNumber()
{
    emit typed(box->isAbsent() ? QString() : QString::number(box->value()));
}

bool NumberField::isFor(const SettingRow& row) const
{
    return isKind(row, SettingKind::Number);
}

void NumberField::show(const SettingRow& row)
{
    const QSignalBlocker silence(box);
    const int number = row.isAbsent() ? box->minimum() : toolkit::toInteger(*row.written);
    if (number != box->value()) // or what is being typed would be selected
        box->setValue(number);
    colour(*box, row.isAbsent());
}
