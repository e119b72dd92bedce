#pragma once

/// Plays scenarios against the core alone: nothing is shown.

#include <tablio/testing/driver.h>

#include <optional>

namespace tablio::scenario {

class CoreDriver : public Driver {
public:
    void create(Twips width, Twips height) override {
        tablio_.emplace();
        tablio_->setFace(&face);
        tablio_->InitProperties();
        resize(width, height);
    }
    void destroy() override { tablio_.reset(); }
    [[nodiscard]] Tablio *core() override { return tablio_ ? &*tablio_ : nullptr; }

private:
    std::optional<Tablio> tablio_;
};

} // namespace tablio::scenario
