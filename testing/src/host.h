#pragma once

/// The host of a scenario: it writes every event down, one line each, and answers as the scenario
/// has prepared. It knows events and no steps; what a step in a handler means, the player
/// tells it.

#include <tablio/testing/script.h>

#include <tablio/dispatch.h>
#include <tablio/members.h>
#include <tablio/types.h>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tablio::scenario {

/// What a scenario's handler throws.
class HostError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One prepared answer.
struct HostRule {
    std::string event;
    /// Only for this cell.
    std::optional<CellAddress> cell;
    /// Used up by the first event that it fits.
    bool once = false;
    /// Argument and value to be answered.
    std::optional<std::pair<std::string, Token>> answer;
    std::optional<std::string> error;
    std::vector<Line> steps;

    bool usedUp = false;
    /// Its steps are running: events that they raise do not start them again.
    bool running = false;
};

class ScenarioHost : public EventSink {
public:
    struct Entry {
        std::string event;
        std::string text;
    };

    /// What the control is given as its host.
    std::unique_ptr<HostEvents> relay = relayTo(*this);
    /// Runs steps inside a handler.
    std::function<void(const std::vector<Line> &)> runSteps;

    /// Throws ScriptError when no event has such a name or argument.
    void add(HostRule rule);
    void forgetRules() { rules_.clear(); }
    /// Whether a rule's steps are being played.
    [[nodiscard]] bool isRunning() const noexcept { return running_ > 0; }
    [[nodiscard]] std::vector<Entry> takeEvents() { return std::exchange(events_, {}); }
    /// Throws ScriptError for a name that no event has.
    static void checkEvent(std::string_view name);

    void event(MemberNumber number, std::span<Value> arguments) override;

    /// Events are written down as they are answered instead of as they come.
    void noteAnswered(bool answered) { notesAnswered_ = answered; }
    /// The line that scenarios write for an event.
    [[nodiscard]] static std::string lineOf(MemberNumber number, std::span<const Value> arguments);

private:
    void answer(const Event &event, std::span<Value> arguments);

    bool notesAnswered_ = false;
    int running_ = 0;
    std::vector<Entry> events_;
    /// Shared, because a rule's steps may add rules or forget them all while it runs.
    std::vector<std::shared_ptr<HostRule>> rules_;
};

} // namespace tablio::scenario
