#include "ai/ExplainEndpoint.h"

namespace tidlo {

QString ExplainEndpoint::builtInHost()
{
    return QStringLiteral(TIDLO_AI_PROXY_HOST);
}

} // namespace tidlo
