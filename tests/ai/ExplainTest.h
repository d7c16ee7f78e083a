#pragma once

#include "ai/GeminiClient.h"
#include "ai/ScriptedServer.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <string>

namespace tidlo {

inline const std::string requestFailed = "\u26A0\uFE0F Request failed: ";

/// A test that asks for an explanation over real connections. The environment names an authority of its own, and what
/// it names is trusted, nothing else. Explanations are told as UTF-8, one that is absent as "absent".
class ExplainTest : public testing::Test
{
protected:
    ExplainTest();
    ~ExplainTest() override;

    static const TestAuthority &authority();
    static const TestIdentity &localhost(); ///< Issued by the authority.

    /// What explain() gives with the endpoint as it is.
    std::string explain(const QList<CleanupCandidate> &candidates = {}) const;

    /// What it gives when \a server is the proxy.
    std::string explainBy(const ScriptedServer &server, const QList<CleanupCandidate> &candidates = {});

    /// What it gives when the proxy answers with \a bytes and closes the connection.
    std::string explainAnswered(const QByteArray &bytes);

    ExplainEndpoint endpoint;
    TemporaryHome folder;
};

} // namespace tidlo
