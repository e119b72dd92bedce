#pragma once

/// Writes an operator's session down as a scenario, so that the report of a fault is a file that
/// can be played: what the control was, what the user did, and what the host heard and answered.
/// A host switches it on; it changes nothing.

#include <tablio/tablio.h>

#include <memory>
#include <string>
#include <string_view>

namespace tablio::scenario {

/// What a form writes into its grid by itself is not a step: the form writes it again when the
/// scenario is played with it. A scenario that is played with a bare control does without.
class Recorder {
public:
    enum class Texts {
        AsTyped,
        /// Letters become x, digits but 0 become 1, in whatever was typed, pasted or there before.
        /// Such a scenario plays the same steps and expects nothing of texts and events.
        Masked,
    };

    /// Begins. The control must live as long as the recorder, and has no other witness meanwhile.
    explicit Recorder(Tablio &control, Texts texts = Texts::AsTyped);
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    /// The file's text: a background that sets up the control as it was, and all steps so far.
    [[nodiscard]] std::string scenario(std::string_view name) const;

private:
    class Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace tablio::scenario
