#pragma once

#include "ai/GeminiClient.h"
#include "ai/ScriptedServer.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <string>

namespace tidlo {

inline const std::string requestFailed = "\u26A0\uFE0F Request failed: ";

/// A test that asks for an explanation over real connections. The environment names a test authority, the only one that
/// is trusted. Explanations are compared as UTF-8, an absent one as "absent".
class ExplainTest : public testing::Test
{
protected:
    ExplainTest();
    ~ExplainTest() override;

    static const TestAuthority &authority();
    static const TestIdentity &localhost(); ///< Issued by the authority.

    /// The result of explain() with the current endpoint.
    std::string explain(const QList<CleanupCandidate> &candidates = {}) const;

    /// The same with \a server as the proxy.
    std::string explainBy(const ScriptedServer &server, const QList<CleanupCandidate> &candidates = {});

    /// The same if the proxy answers with \a bytes and closes the connection.
    std::string explainAnswered(const QByteArray &bytes);

    ExplainEndpoint endpoint;
    TemporaryHome folder;
};

} // namespace tidlo
