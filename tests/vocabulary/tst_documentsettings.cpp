#include "vocabulary/samplejob.h"

#include "support/examples.h"
#include "vocabulary/documentgroups.h"
#include "vocabulary/settings.h"

#include <QtTest>

using vocabulary::Method;
using vocabulary::Setting;
using vocabulary::SettingGroup;
using vocabulary::SettingKind;

/// The table of the documents' settings says what the print program does: a setting changes the script of just those
/// methods in which the table says that it acts.
class TestDocumentSettings : public QObject {
    Q_OBJECT

private slots:
    void settingsThatAct_data() { addMethodRows(); }
    void settingsThatAct();
    void settingsOfOtherGroups_data() { addMethodRows(); }
    void settingsOfOtherGroups();
    void absentValues_data() { addMethodRows(); }
    void absentValues();
    void malformedValues_data() { addMethodRows(); }
    void malformedValues();
    void greatestWidths_data() { addMethodRows(); }
    void greatestWidths();
    void theLanguageActsInEveryMethodThatPrintsLabels_data() { addMethodRows(); }
    void theLanguageActsInEveryMethodThatPrintsLabels();
    void theExamplesHoldEverySettingThatIsRead();
};

namespace {

const SettingGroup& groupOf(const Method& method)
{
    return *vocabulary::findGroup(documentgroups::ofType(method.documentType));
}

/// A value that prints otherwise than that of sampleSettings().
QString otherSetting(const Setting& setting, const QString& value)
{
    switch (setting.kind) {
    case SettingKind::Flag:
        return "false";
    case SettingKind::Number:
        return QString::number(value.toInt() + 1);
    default:
        return value + " other";
    }
}

SampleSettings allChanged(const SettingGroup& group, SampleSettings settings)
{
    for (const Setting& setting : group.settings)
        settings[setting.key] = otherSetting(setting, settings[setting.key]);
    return settings;
}

SampleSettings withSetting(const QString& key, const QString& value)
{
    SampleSettings settings = sampleSettings();
    settings[key] = value;
    return settings;
}

SampleSettings withoutSetting(const QString& key)
{
    SampleSettings settings = sampleSettings();
    settings.remove(key);
    return settings;
}

bool actsIn(const Method& method, const Setting& setting)
{
    return vocabulary::methodsAffected(groupOf(method), setting).contains(&method);
}

/// The sample job with the name of each dish longer than the greatest width.
SampleJob sampleJobWithLongNames()
{
    SampleJob job = sampleJob();
    for (SampleElement& element : job) {
        for (SampleAttribute& attribute : element.attributes) {
            if (element.name.startsWith("receipe") && attribute.name == "name")
                attribute.value = QString(10010, 'a');
        }
    }
    return job;
}

/// Keys of the groups below "zelmora", in the order of a file as the suite writes it.
QMap<QString, QStringList> keysInExamples()
{
    QMap<QString, QStringList> keys;
    const QRegularExpression line("^ {4}(?<group>\\w+): $|^ {8}(?<key>\\w+) = ", QRegularExpression::MultilineOption);
    QString group;
    QRegularExpressionMatchIterator lines = line.globalMatch(QString::fromUtf8(exampleSettings()));
    while (lines.hasNext()) {
        const QRegularExpressionMatch match = lines.next();
        if (match.captured("key").isEmpty())
            group = match.captured("group");
        else
            keys[group] += match.captured("key");
    }
    return keys;
}

QStringList keysRead(const SettingGroup& group)
{
    QStringList keys;
    for (const Setting& setting : group.settings) {
        if (vocabulary::isRead(group, setting))
            keys += setting.key;
    }
    return keys;
}

} // namespace

void TestDocumentSettings::settingsThatAct()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const SampleJob job = sampleJob();
    const SampleSettings settings = sampleSettings();
    const QByteArray whole = run.script(printed, job);
    QStringList acting;
    QStringList toAct;
    for (const Setting& setting : groupOf(printed).settings) {
        QVERIFY2(settings.contains(setting.key), setting.key.data());
        const QString other = otherSetting(setting, settings[setting.key]);
        if (run.script(printed, job, withSetting(setting.key, other)) != whole)
            acting += setting.key;
        if (actsIn(printed, setting))
            toAct += setting.key;
    }
    QCOMPARE(acting, toAct);
}

// Those of the programs that print nothing among them.
void TestDocumentSettings::settingsOfOtherGroups()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    QMap<QString, SampleSettings> groups;
    QMap<QString, SampleSettings> changedGroups;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        if (group.name == "language")
            continue;
        const SampleSettings settings = group.isDocument ? sampleSettings() : SampleSettings();
        groups[group.name] = settings;
        changedGroups[group.name] = &group == &groupOf(printed) ? settings : allChanged(group, settings);
    }
    SampleRun run;
    const SampleJob job = sampleJob();
    QCOMPARE(run.scriptWithFile(printed, job, settingsText(changedGroups)),
             run.scriptWithFile(printed, job, settingsText(groups)));
}

void TestDocumentSettings::absentValues()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const SampleJob job = sampleJob();
    for (const Setting& setting : groupOf(printed).settings) {
        QVERIFY2(!setting.absent.isEmpty() || setting.absence, setting.key.data());
        if (!actsIn(printed, setting))
            continue;
        QCOMPARE(setting.key + run.script(printed, job, withoutSetting(setting.key)),
                 setting.key + run.script(printed, job, withSetting(setting.key, setting.absent)));
    }
}

// What is neither "true" nor a number counts as absent: the kinds are those that the program takes.
void TestDocumentSettings::malformedValues()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const SampleJob job = sampleJob();
    for (const Setting& setting : groupOf(printed).settings) {
        if (!actsIn(printed, setting))
            continue;
        const QString malformed = setting.kind == SettingKind::Flag ? "True" : "5 mm";
        QVERIFY(!vocabulary::takes(setting, malformed));
        QCOMPARE(setting.key + run.script(printed, job, withSetting(setting.key, malformed)),
                 setting.key + run.script(printed, job, withoutSetting(setting.key)));
    }
}

void TestDocumentSettings::greatestWidths()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    SampleRun run;
    const SampleJob job = sampleJobWithLongNames();
    for (const Setting& setting : groupOf(printed).settings) {
        if (setting.kind != SettingKind::Number || !actsIn(printed, setting))
            continue;
        const auto scriptAt = [&](int value) {
            return run.script(printed, job, withSetting(setting.key, QString::number(value)));
        };
        const QByteArray greatest = scriptAt(setting.greatest);
        QVERIFY2(scriptAt(setting.greatest + 1) == greatest, setting.key.data());
        QVERIFY2(scriptAt(setting.greatest - 1) != greatest, setting.key.data());
    }
}

void TestDocumentSettings::theLanguageActsInEveryMethodThatPrintsLabels()
{
    QFETCH(int, method);
    const Method& printed = vocabulary::methods()[method];
    const QFileInfo catalogue(ZELMORA_CATALOGUE);
    const auto language = [&](const QString& folder, const QString& file) {
        return settingsText(
            {{groupOf(printed).name, sampleSettings()}, {"language", {{"basedir", folder + '/'}, {"file", file}}}});
    };
    SampleRun run;
    const SampleJob job = sampleJob();
    const QByteArray english = run.script(printed, job);
    const QByteArray italian = run.scriptWithFile(printed, job, language(catalogue.path(), catalogue.fileName()));
    const SettingGroup& languages = *vocabulary::findGroup("language");
    for (const Setting& setting : languages.settings)
        QCOMPARE(italian != english, vocabulary::methodsAffected(languages, setting).contains(&printed));
    QCOMPARE(run.scriptWithFile(printed, job, language(catalogue.path(), "none.qm")), english);
    QCOMPARE(run.scriptWithFile(printed, job, language("/nowhere", catalogue.fileName())), english);
}

void TestDocumentSettings::theExamplesHoldEverySettingThatIsRead()
{
    QMap<QString, QStringList> keys = keysInExamples();
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        const QStringList found = keys.take(group.name);
        QCOMPARE(group.name + ": " + found.join(' '), group.name + ": " + keysRead(group).join(' '));
    }
    QCOMPARE(keys.keys(), QStringList());
}

QTEST_GUILESS_MAIN(TestDocumentSettings)
#include "tst_documentsettings.moc"
