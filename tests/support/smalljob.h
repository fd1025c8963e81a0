#ifndef ZELMORA_TESTS_SUPPORT_SMALLJOB_H
#define ZELMORA_TESTS_SUPPORT_SMALLJOB_H

#include "support/registerscript.h"

/// A receipt that has a number and nothing else.
const QByteArray smallJob = R"(<job><method name="printFullOrderReceipt"/><receipt serialnumber="7"/></job>)";

/// What it prints on paper of @p paperWidth characters, in English.
inline QByteArray smallScript(int paperWidth = 32)
{
    return document({" Serial Number: 7", rule(paperWidth)});
}

#endif
