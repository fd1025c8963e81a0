#ifndef ZELMORA_VOCABULARY_DOCUMENTGROUPS_H
#define ZELMORA_VOCABULARY_DOCUMENTGROUPS_H

#include "toolkit/literals.h"

/// The groups of the settings file, below "zelmora", that hold the settings of the kinds of document.
namespace documentgroups {

using toolkit::operator""_L1;

/// Also that of a document of unknown type, which whoever meets one reports.
constexpr QLatin1String prefiscal = "prefiscaldoc"_L1;

/// The group of the documents of @p type: "receiptdoc" for "receipt". The type is in lower case; an unknown one has
/// none, which is an empty text.
QLatin1String ofType(const QString& type);

} // namespace documentgroups

#endif
