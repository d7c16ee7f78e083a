#include "ai/ExplainEndpoint.h"

/// Takes the place of the host that the program was built with.
QString ExplainEndpoint::builtInHost()
{
    return qEnvironmentVariable("TIDLO_TEST_PROXY");
}
