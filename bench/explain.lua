-- The request that wrk sends to the proxy: the client's question about eight findings, from a new device each time.
local file = assert(io.open("tests/data/prompt/eight.txt"))
local prompt = file:read("a"):gsub('[%c"\\]', function(character)
    return string.format("\\u%04x", character:byte())
end)
file:close()

local asked = 0
function request()
    asked = asked + 1
    local headers = { ["Content-Type"] = "application/json", ["X-Device-UUID"] = "device-" .. asked }
    return wrk.format("POST", "/explain", headers, '{"contents":[{"parts":[{"text":"' .. prompt .. '"}]}]}')
end

function done(summary)
    local errors = summary.errors
    io.write(string.format("failed: %d\n", errors.connect + errors.read + errors.write + errors.status + errors.timeout))
end
