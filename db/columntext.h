#ifndef ZELMORA_DB_COLUMNTEXT_H
#define ZELMORA_DB_COLUMNTEXT_H

class QString;
class QVariant;

/// The text of a column's value, whatever its type; NULL is empty. DatabaseManager's header says what each type
/// looks like.
QString columnText(const QVariant& value);

#endif
