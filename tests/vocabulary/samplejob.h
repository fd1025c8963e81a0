#ifndef ZELMORA_TESTS_VOCABULARY_SAMPLEJOB_H
#define ZELMORA_TESTS_VOCABULARY_SAMPLEJOB_H

#include "support/programrun.h"
#include "vocabulary/jobs.h"

#include <QMap>
#include <QString>
#include <QVector>

// A job that has everything, to be printed by the real program as it is and with one thing changed: what the tables of
// the vocabulary say is held to what then becomes of the script.

struct SampleAttribute {
    QString name;
    QString value;
};

struct SampleElement {
    QString name;
    QVector<SampleAttribute> attributes;
};

using SampleJob = QVector<SampleElement>;

/// Every element that some method reads, once, with every attribute that some method reads of it. Names of dishes are
/// wider than their columns, so that the width of each column shows.
SampleJob sampleJob();
/// The same, and in each element whose attributes are read by their names alone those of all other elements too, and
/// one that no method reads.
SampleJob sampleJobWithForeignAttributes();

/// @p job without its element @p element.
SampleJob without(const SampleJob& job, int element);
/// @p job with another value in the attribute @p attribute of its element @p element.
SampleJob withValue(const SampleJob& job, int element, int attribute, const QString& value);
/// A value that differs from that attribute's in its first character, which no column cuts.
QString otherValue(const SampleAttribute& attribute);

/// What @p method reads by its name in @p element, or by its position @p index among the element's attributes in the
/// file; null when it reads none of both.
const vocabulary::Attribute* attributeRead(const vocabulary::Method& method, const SampleElement& element, int index);

/// The settings of one document: key and value.
using SampleSettings = QMap<QString, QString>;

/// With all flags on, and widths of which each shows in a document with rows.
SampleSettings sampleSettings();
/// The same with no flags on but @p flags.
SampleSettings sampleSettingsWithFlags(const QStringList& flags);
/// The keys of all print flags.
QStringList printFlags();
/// A settings file of these groups.
QByteArray settingsText(const QMap<QString, SampleSettings>& groups);

/// Rows named after the thirteen methods, in a column "method" that holds the position in vocabulary::methods().
void addMethodRows();

/// Prints jobs with the real program.
class SampleRun {
public:
    /// The script of @p job with @p settings for its document; and behind it what the program said, which should be
    /// nothing.
    QByteArray script(const vocabulary::Method& method, const SampleJob& job,
                      const SampleSettings& settings = sampleSettings());
    /// The same with a whole settings file.
    QByteArray scriptWithFile(const vocabulary::Method& method, const SampleJob& job, const QByteArray& settingsFile);

private:
    ProgramRun run;
};

#endif
