#ifndef ZELMORA_CHECK_SCHEMA_H
#define ZELMORA_CHECK_SCHEMA_H

#include <QByteArray>

namespace check {

/// The XML Schema (1.0) of jobs, made from the vocabulary, with a sentence on each element and attribute for editors
/// that show it. It knows names alone: each element may stand in each, as often as it likes, and no attribute is
/// required. The root is "printjob" or "job" and may have any attribute. Elements of a namespace are not looked into.
/// Whatever else is wrong the check of jobs says.
QByteArray jobSchema();

} // namespace check

#endif
