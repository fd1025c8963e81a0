#ifndef ZELMORA_PREVIEW_SAMPLES_H
#define ZELMORA_PREVIEW_SAMPLES_H

#include "toolkit/literals.h"
#include "vocabulary/table.h"

#include <QByteArray>
#include <QString>

namespace preview {

/// A job that is built into the programs: one for each print method, with figures that look like an evening's.
struct Sample {
    QLatin1String method; ///< that prints it
    QLatin1String file; ///< its name: "receipt.xml"
    const char* titleText; ///< to be translated

    QString title() const; ///< what the document is to a person, translated: "Receipt"
    QByteArray job() const;
};

/// In the order of the print methods (vocabulary::methods()).
vocabulary::Table<Sample> samples();
/// Null when no print method has that name.
const Sample* findSample(const QString& method);

} // namespace preview

#endif
