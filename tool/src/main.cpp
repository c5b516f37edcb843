#include "program/Program.h"
#include "support/Output.h"

#include <QLoggingCategory>

int main(int count, char** arguments)
{
    // What the libraries tell developers is no answer to a user; QT_LOGGING_RULES brings it back.
    QLoggingCategory::setFilterRules(QStringLiteral("zel.*.debug=false"));
    tool::ignoreClosedPipes();
    tool::Program program;
    tool::addReadCommand(&program);
    tool::addMassCommand(&program);
    tool::addIonsCommand(&program);
    tool::addDigestCommand(&program);
    tool::addEnvelopeCommand(&program);
    tool::addMatchCommand(&program);
    tool::addFormulasCommand(&program);
    tool::addSearchCommand(&program);
    return program.run(count, arguments);
}
