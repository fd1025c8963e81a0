#ifndef ZELMORA_TOOLKIT_SQL_SQLDRIVER_H
#define ZELMORA_TOOLKIT_SQL_SQLDRIVER_H

class QString;

namespace toolkit {

/// The name by which this toolkit has the driver @p name. Qt 5 has PostgreSQL's by "QPSQL7" and by "QPSQL", Qt 6 by
/// "QPSQL" alone.
QString sqlDriver(const QString& name);

} // namespace toolkit

#endif
