#ifndef ZELMORA_CHECK_XMLCAUSES_H
#define ZELMORA_CHECK_XMLCAUSES_H

class QString;

namespace check {

/// What the XML reader's @p message means in plain words, translated: a sentence for somebody who writes jobs.
QString xmlCause(const QString& message);
/// The same where the root element has ended.
QString xmlCauseBehindRoot(const QString& message);

} // namespace check

#endif
