#include "check/schema.h"

#include <cstdio>

/// Writes the schema of jobs to standard output.
int main()
{
    const QByteArray schema = check::jobSchema();
    return std::fwrite(schema.constData(), 1, size_t(schema.size()), stdout) == size_t(schema.size()) ? 0 : 1;
}
