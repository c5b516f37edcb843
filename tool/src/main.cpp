#include "program/Program.h"

int main(int count, char** arguments)
{
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
