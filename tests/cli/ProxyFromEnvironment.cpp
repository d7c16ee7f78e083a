#include "ai/ExplainEndpoint.h"

namespace tidlo {

/// Takes the place of the host that the program was built with.
QString ExplainEndpoint::builtInHost()
{
    return qEnvironmentVariable("TIDLO_TEST_PROXY");
}

} // namespace tidlo
