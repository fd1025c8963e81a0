#ifndef ZELMORA_CHECK_PRINTFLAGS_H
#define ZELMORA_CHECK_PRINTFLAGS_H

#include "check/jobcheck.h"
#include "vocabulary/jobs.h"

#include <QHash>

namespace check {

/// The print flags of a document as its settings have them.
class PrintFlags {
public:
    explicit PrintFlags(const JobSettings& settings);

    /// From now on those of the documents that @p method prints.
    void select(const vocabulary::Method& method);
    /// An empty @p flag is always on: there is none to switch it off.
    bool isOn(QLatin1String flag) const;
    /// Why the @p flag is off, in a sentence: its line in the settings file, or that it is not set.
    QString whyOff(QLatin1String flag) const;
    /// The setting @p key of the document, as it stands.
    QString value(QLatin1String key) const;

private:
    QString keyOf(QLatin1String key) const;

    const JobSettings& settings;
    QString group; ///< "zelmora.receiptdoc."
    mutable QHash<QLatin1String, bool> known; ///< those that were asked for
};

} // namespace check

#endif
