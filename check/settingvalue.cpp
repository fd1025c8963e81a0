#include "check/settingvalue.h"

#include "check/settingssyntax.h"
#include "config/settingsscan.h"
#include "driver/registercommands.h"
#include "toolkit/eightbit.h"
#include "toolkit/literals.h"
#include "toolkit/numbertext.h"
#include "vocabulary/settings.h"

#include <QObject>
#include <QRegularExpression>

#include <algorithm>

using libconfig::ScannedSetting;
using toolkit::operator""_L1;
using vocabulary::Setting;
using vocabulary::SettingGroup;
using vocabulary::SettingKind;

namespace check {

namespace {

/// Digits, too many of which are no number to the programs.
bool isNumeral(const QString& value)
{
    static const QRegularExpression numeral(QStringLiteral("\\A[+-]?[0-9]+\\z"));
    return numeral.match(value.trimmed()).hasMatch();
}

bool isBeyondRange(const Setting& meaning, int number)
{
    return number < meaning.least || number > meaning.greatest;
}

/// Whether some script, or another program, depends on the setting in this group.
bool actsIn(const SettingGroup& group, const Setting& meaning)
{
    if (!group.isDocument)
        return true;
    if (meaning.readIn == Setting::ReadIn::AllButSold)
        return isRead(group, meaning);
    return !methodsAffected(group, meaning).isEmpty();
}

/// The documents' groups, joined by commas, in which the setting acts.
QString groupsWhereItActs(const Setting& meaning)
{
    QStringList names;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        if (group.isDocument && actsIn(group, meaning))
            names += group.name;
    }
    return names.join(QStringLiteral(", "));
}

/// What is to be said of one value.
class ValueCheck {
public:
    ValueCheck(const SettingGroup& group, const Setting& meaning, const ScannedSetting& setting, Findings& findings)
        : group(group)
        , meaning(meaning)
        , setting(setting)
        , value(toolkit::eightBit(setting.value))
        , number(toolkit::wholeNumber(value))
        , findings(findings)
    {
    }

    void check()
    {
        if (value.isEmpty())
            return;
        if (isRead(group, meaning)) {
            if (const std::optional<QString> character = lossyCharacterOf(setting.value))
                findings += lossyFound(*character, setting.place);
            checkKind();
        }
        if (actsIn(group, meaning))
            checkPaper();
        else if (actsSomewhere(meaning) && saysSomething())
            add(Code::NoEffect,
                QObject::tr("\"%1\" has no effect in \"%2\", but in: %3.")
                    .arg(meaning.key, group.name, groupsWhereItActs(meaning)));
    }

private:
    void checkKind()
    {
        switch (meaning.kind) {
        case SettingKind::Flag:
            if (!takes(meaning, value))
                addNoFlag();
            break;
        case SettingKind::Number:
            checkNumber();
            break;
        case SettingKind::Word:
            if (!takes(meaning, value))
                addNoWord();
            break;
        case SettingKind::Path:
        case SettingKind::Text:
        case SettingKind::Secret:
            break;
        }
    }

    void addNoFlag()
    {
        const QString lower = value.trimmed().toLower();
        const bool isNear = lower == "true"_L1 || lower == "false"_L1;
        add(Code::NotAFlag,
            QObject::tr("\"%1\" reads as false: %2 is \"true\" or \"false\", in just these letters.")
                .arg(excerpt(value), meaning.key),
            isNear ? lower : QString());
    }

    void checkNumber()
    {
        if (number && !isBeyondRange(meaning, *number))
            return;
        const int taken = numberTaken(meaning, value);
        if (number == taken)
            add(Code::OutOfRange,
                QObject::tr("%1 is out of range, and is taken all the same: %2 is %3.")
                    .arg(QString::number(*number), meaning.key, valueText(meaning)));
        else if (number || isNumeral(value))
            add(Code::OutOfRange,
                QObject::tr("%1 is out of range, and is taken as %2: %3 is %4.")
                    .arg(excerpt(value), QString::number(taken), meaning.key, valueText(meaning)));
        else
            add(Code::NotANumber,
                QObject::tr("\"%1\" is no whole number, and counts as %2: write digits alone.")
                    .arg(excerpt(value), QString::number(taken)));
    }

    void addNoWord()
    {
        const QString absence = meaning.absence ? QObject::tr(meaning.absence) : QString(meaning.absent);
        add(Code::NotAWord,
            QObject::tr("\"%1\" counts as absent (%2): %3 is %4.")
                .arg(excerpt(value), absence, meaning.key, valueText(meaning)));
    }

    void checkPaper()
    {
        if (meaning.key == "paperWidth"_L1 && number.value_or(0) > registercommands::paperWidth)
            add(Code::PaperWiderThanRegister,
                QObject::tr("The paper is wider than the register's %1 characters, within which lines are centred.")
                    .arg(registercommands::paperWidth));
    }

    /// Whether the value is another one than what the setting is without it.
    bool saysSomething() const
    {
        switch (meaning.kind) {
        case SettingKind::Flag:
            return value == "true"_L1;
        case SettingKind::Number:
            if (!number)
                return !isRead(group, meaning); // else it has been reported, and counts as absent
            return number != 0 && number != toolkit::wholeNumber(meaning.absent);
        case SettingKind::Word:
        case SettingKind::Path:
        case SettingKind::Text:
        case SettingKind::Secret:
            break;
        }
        return true;
    }

    void add(Code code, const QString& text, const QString& suggestion = {})
    {
        findings += finding(code, setting.place, text, suggestion);
    }

    const SettingGroup& group;
    const Setting& meaning;
    const ScannedSetting& setting;
    const QString value; ///< as the programs get it
    const std::optional<int> number;
    Findings& findings;
};

} // namespace

std::optional<QString> lossyCharacterOf(const QString& text)
{
    const auto found =
        std::find_if(text.begin(), text.end(), [](QChar character) { return character.unicode() > 0xFF; });
    if (found == text.end())
        return std::nullopt;
    const auto place = static_cast<int>(found - text.begin());
    return text.mid(place, found->isHighSurrogate() ? 2 : 1);
}

Finding lossyFound(const QString& character, toolkit::TextPlace place)
{
    const QString number = QString::number(character.toUcs4().value(0), 16).toUpper();
    return finding(
        Code::LossyCharacter, place,
        QObject::tr("The programs read \"?\" for \"%1\" (U+%2): it is beyond the Western European characters.")
            .arg(character, number.rightJustified(4, QLatin1Char('0'))));
}

void checkSettingValue(const SettingGroup& group, const Setting& meaning, const ScannedSetting& setting,
                       Findings& findings)
{
    ValueCheck(group, meaning, setting, findings).check();
}

} // namespace check
