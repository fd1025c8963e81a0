#ifndef ZELMORA_CHECK_CODELIST_H
#define ZELMORA_CHECK_CODELIST_H

class QString;

namespace check {

/// All codes of findings, each in a line of three columns: the name; the severity, or both where there are two; a
/// sentence, translated.
QString codeList();

} // namespace check

#endif
