#include "check/jsonarray.h"

#include "toolkit/console.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace check {

void JsonArray::add(const QJsonObject& object)
{
    toolkit::write(isEmpty ? "[\n" : ",\n");
    toolkit::write(QJsonDocument(object).toJson(QJsonDocument::Compact));
    isEmpty = false;
}

void JsonArray::finish()
{
    toolkit::write(isEmpty ? "[]\n" : "\n]\n");
}

} // namespace check
