#ifndef ZELMORA_CHECK_JSONARRAY_H
#define ZELMORA_CHECK_JSONARRAY_H

class QJsonObject;

namespace check {

/// An array of objects on standard output, in UTF-8, one object in a line: each is written when it comes, so that the
/// array is nowhere whole.
class JsonArray {
public:
    void add(const QJsonObject& object);
    /// To be called once, at the end; of an array without objects too.
    void finish();

private:
    bool isEmpty = true;
};

} // namespace check

#endif
