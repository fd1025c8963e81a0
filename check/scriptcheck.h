#ifndef ZELMORA_CHECK_SCRIPTCHECK_H
#define ZELMORA_CHECK_SCRIPTCHECK_H

#include "check/finding.h"

class QTextCodec;

namespace paper {
struct Roll;
}

namespace check {

/// What is wrong with a script for the register, in the order of its places. It may be anything. @p codec: of its
/// bytes; the locale's when it is null.
Findings checkScript(const QByteArray& script, QTextCodec* codec = nullptr);

/// The same of a script that paper::readRoll() has read with this @p codec.
Findings findingsOf(const paper::Roll& roll, QTextCodec* codec = nullptr);

} // namespace check

#endif
