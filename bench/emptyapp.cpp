// What a process of the toolkit costs before it does any work: start, load QtCore and QtXml, make the
// application object, end.

#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    return 0;
}
