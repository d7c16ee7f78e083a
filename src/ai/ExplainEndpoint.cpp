#include "ai/ExplainEndpoint.h"

QString ExplainEndpoint::builtInHost()
{
    return QStringLiteral(TIDLO_AI_PROXY_HOST);
}
