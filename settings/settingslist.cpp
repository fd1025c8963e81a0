#include "settings/settingslist.h"

#include "check/jsonarray.h"
#include "toolkit/console.h"
#include "toolkit/eightbit.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

#include <QJsonObject>
#include <QObject>

#include <algorithm>

using toolkit::operator""_L1;
using vocabulary::Setting;
using vocabulary::SettingGroup;
using vocabulary::SettingKind;

namespace settings {

namespace {

const int widestColumn = 40; ///< what is longer runs on, and moves nothing but its own line

ListedSetting listed(const SettingGroup& group, const Setting& setting, const check::PlacedSettings& file)
{
    ListedSetting found {vocabulary::keyOf(group, setting), &setting, {}, {}, {}};
    if (const auto placed = file.find(found.key)) {
        found.written = toolkit::eightBit(placed->value);
        found.place = placed->place;
    }
    found.value = found.written;
    return found;
}

/// What the print program takes for a setting.
QString valueTaken(const Setting& setting, const QString& written)
{
    switch (setting.kind) {
    case SettingKind::Number:
        return QString::number(numberTaken(setting, written));
    case SettingKind::Flag:
        return written == "true"_L1 ? written : QStringLiteral("false");
    case SettingKind::Word:
    case SettingKind::Path:
    case SettingKind::Text:
    case SettingKind::Secret:
        break;
    }
    return written;
}

QString shownValue(const ListedSetting& listed, const QString& value, const ListForm& form)
{
    const bool isHidden = listed.setting->kind == SettingKind::Secret && !form.showsSecrets;
    return isHidden ? QStringLiteral("***") : value;
}

QString shownAbsence(const Setting& setting)
{
    return setting.absence ? QLatin1Char('(') + QObject::tr(setting.absence) + QLatin1Char(')') : setting.absent;
}

/// The texts of a line; the last one after its source.
struct Line {
    QString key;
    QString value;
    QByteArray source;
    QString remark;
};

Line lineOf(const ListedSetting& listed, const ListForm& form)
{
    if (listed.isAbsent())
        return {listed.key, shownAbsence(*listed.setting), "default", QString()};
    Line line;
    line.key = listed.key;
    line.value = toolkit::inOneLine(shownValue(listed, listed.value, form));
    line.source = toolkit::fileName(toolkit::inOneLine(form.file)) + ':' + QByteArray::number(listed.place.line);
    if (listed.value != listed.written)
        line.remark = QObject::tr("(the file says \"%1\")").arg(toolkit::inOneLine(listed.written));
    return line;
}

int columnWidth(const QVector<Line>& lines, QString Line::*column)
{
    int width = 0;
    for (const Line& line : lines)
        width = std::max<int>(width, (line.*column).size());
    return std::min(width, widestColumn);
}

QJsonObject asObject(const ListedSetting& listed, const ListForm& form)
{
    const QLatin1String absent = listed.setting->absent;
    QJsonObject object {
        {"key"_L1, listed.key},
        {"value"_L1, QJsonValue()},
        {"default"_L1, absent.isEmpty() ? QJsonValue() : QJsonValue(absent)},
        {"source"_L1, listed.isAbsent() ? "default"_L1 : "file"_L1},
        {"file"_L1, QJsonValue()},
        {"line"_L1, QJsonValue()},
    };
    if (!listed.isAbsent()) {
        object["value"_L1] = shownValue(listed, listed.value, form);
        object["file"_L1] = form.file;
        object["line"_L1] = listed.place.line;
    }
    return object;
}

} // namespace

SettingsList settingsOf(const SettingGroup& group, const check::PlacedSettings& file)
{
    SettingsList list;
    for (const Setting& setting : group.settings) {
        if (vocabulary::isRead(group, setting))
            list += listed(group, setting, file);
    }
    return list;
}

SettingsList settingsFor(const vocabulary::Method& method, const check::PlacedSettings& file)
{
    SettingsList list;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        for (const Setting& setting : group.settings) {
            if (!vocabulary::methodsAffected(group, setting).contains(&method))
                continue;
            ListedSetting found = listed(group, setting, file);
            if (!found.isAbsent())
                found.value = valueTaken(setting, found.written);
            list += found;
        }
    }
    return list;
}

QByteArray asTable(const SettingsList& list, const ListForm& form)
{
    QVector<Line> lines;
    for (const ListedSetting& listed : list)
        lines += lineOf(listed, form);
    const int keyWidth = columnWidth(lines, &Line::key);
    const int valueWidth = columnWidth(lines, &Line::value);
    QByteArray table;
    for (const Line& line : lines) {
        table += toolkit::localeText(line.key.leftJustified(keyWidth) + "  "_L1 + line.value.leftJustified(valueWidth))
            + "  " + line.source;
        table += (line.remark.isEmpty() ? QByteArray() : "  " + toolkit::localeText(line.remark)) + '\n';
    }
    return table;
}

void writeJson(const SettingsList& list, const ListForm& form)
{
    check::JsonArray objects;
    for (const ListedSetting& listed : list)
        objects.add(asObject(listed, form));
    objects.finish();
}

} // namespace settings
