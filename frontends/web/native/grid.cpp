#include "grid.h"

#include <map>
#include <utility>

namespace tablio::web {

namespace {

std::map<int, std::shared_ptr<Grid>> grids;

struct HandlerFailed {};

} // namespace

std::shared_ptr<Grid> gridAt(int number) {
    const auto found = grids.find(number);
    if (found == grids.end())
        throw Error("This grid is destroyed.");
    return found->second;
}

Failure currentFailure() {
    try {
        throw;
    } catch (const HandlerFailed &) {
        return {-1, -1, {}};
    } catch (const Error &error) {
        return {static_cast<int>(error.kind()), error.argument(), error.what()};
    } catch (const std::exception &error) {
        return {0, -1, error.what()};
    }
}

Tablio &Grid::table() const {
    if (table_ == nullptr)
        throw Error("This grid is destroyed.");
    return *table_;
}

void Grid::start() {
    table_ = std::make_unique<Tablio>();
    table_->startThemed();
    table_->setFace(this);
    table_->setHost(relay_.get());
}

void Grid::event(MemberNumber number, std::span<Value> arguments) {
    Message message;
    message.add(arguments.size());
    for (const Value &argument : arguments)
        message.add(argument);
    // NOLINTNEXTLINE: addresses have 32 bits here.
    const auto place = reinterpret_cast<std::size_t>(message.done());
    const auto heard = static_cast<Heard>(ask(Ask::Event, number, static_cast<double>(place)));
    if (heard == Heard::Threw)
        throw HandlerFailed();
    if (heard == Heard::Unchanged)
        return;
    Given changed(3 * arguments.size());
    for (Value &argument : arguments)
        argument = changed.value();
}

char32_t Grid::toUpper(char32_t character) const {
    return static_cast<char32_t>(ask(Ask::InCase, character, 1));
}

char32_t Grid::toLower(char32_t character) const {
    return static_cast<char32_t>(ask(Ask::InCase, character, 0));
}

Date Grid::today() const {
    const int date = static_cast<int>(ask(Ask::Today));
    return {date / 10000, date / 100 % 100, date % 100};
}

void Grid::showWarning(std::string_view title, std::string_view text) {
    ask(Ask::ShowMessage, 0, 0, std::string(title).append("\n").append(text));
}

bool Grid::showQuestion(std::string_view title, std::string_view text) {
    ask(Ask::ShowMessage, 1, 0, std::string(title).append("\n").append(text));
    return true;
}

void Grid::noteChange() {
    if (!std::exchange(isNoted_, true))
        ask(Ask::Changed);
}

void Grid::areaChanged(const Rect &area) {
    damage_.add(area, look.scale);
    noteChange();
}

void Grid::scrolled() {
    arrange();
    damage_.scroll(table_->screen(), look.scale);
    noteChange();
}

bool Grid::isEnabled() const {
    return table().Enabled() || table().screen().widget(WidgetId::mvCalender).isVisible;
}

Damage::Frame Grid::takeDamage(int width, int height) {
    isNoted_ = false;
    return damage_.take(width, height);
}

void Grid::repaintAll() {
    damage_.addAll();
    noteChange();
}

void Grid::setRoom(Twips width, Twips height, Twips bar) {
    room_ = {0, 0, width, height};
    bar_ = bar;
    arrange();
}

Arrangement Grid::arranged() const {
    return table().screen().arranged(room_.width, room_.height, bar_, bar_);
}

/// Another size is another range, which is reported and comes back to here.
void Grid::arrange() {
    const Arrangement now = arranged();
    table_->input().resized(now.width, now.height);
}

[[clang::export_name("create")]] int create() {
    static int last = 0;
    grids.emplace(++last, std::make_shared<Grid>(last));
    return with(last, [](Grid &grid) {
        grid.start();
        return last;
    });
}

/// Also in a handler of the grid, whose calls go on to their end.
[[clang::export_name("destroy")]] void destroy(int number) {
    const auto found = grids.find(number);
    if (found == grids.end())
        return;
    const std::shared_ptr<Grid> grid = found->second;
    grids.erase(found);
    grid->destroy();
}

} // namespace tablio::web
