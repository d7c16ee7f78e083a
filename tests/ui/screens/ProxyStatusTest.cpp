#include "ui/screens/ProxyStatus.h"

#include "ai/ExplainEndpoint.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

namespace tidlo {

TEST(ProxyStatus, NamesTheHostThatTheApplicationWasBuiltFor)
{
    const QString host = ExplainEndpoint::liveHost().section(u':', 0, 0);
    ASSERT_FALSE(host.isEmpty());
    EXPECT_EQ(ProxyStatus::sentence(), QStringLiteral("All AI requests are processed securely via ") + host +
                                           QStringLiteral(". No local API key setup required."));
}

} // namespace tidlo
