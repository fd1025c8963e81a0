// What reading a job costs when nothing is printed: the toolkit's reader over the file, with a handler that
// does nothing.

#include <QFile>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    QXmlDefaultHandler handler;
    QXmlSimpleReader reader;
    reader.setContentHandler(&handler);
    QFile file(QFile::decodeName(argv[1]));
    QXmlInputSource source(&file);
    return reader.parse(source) ? 0 : 1;
}
