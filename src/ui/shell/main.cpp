#include "ui/shell/TidloApp.h"

int main(int argumentCount, char **arguments)
{
    return tidlo::runTidlo(argumentCount, arguments);
}
