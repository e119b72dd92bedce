#include "order_samples.h"

#include <iterator>

namespace {

struct Seed {
    const char *code;
    const char *description;
    const char *unit;
    qint64 hundredths;
};

constexpr Seed seeds[] = {
    {"BIND-A4", "Ring binder A4, 60 mm", "piece", 345},
    {"BOARD-90", "Whiteboard 90 x 60 cm", "piece", 4290},
    {"CALC-12", "Desk calculator, 12 digits", "piece", 1875},
    {"CHAIR-02", "Office chair, armrests", "piece", 18900},
    {"CLIP-33", "Paper clips 33 mm, box of 100", "box", 89},
    {"DESK-160", "Desk 160 x 80 cm, oak", "piece", 32950},
    {"ENV-C5", "Envelopes C5, box of 500", "box", 2460},
    {"FOLD-10", "Hanging folders, pack of 10", "pack", 799},
    {"GLUE-40", "Glue stick 40 g", "piece", 165},
    {"INK-BK", "Ink cartridge, black", "piece", 2199},
    {"LABEL-65", "Labels 38 x 21 mm, 65 a sheet", "pack", 1120},
    {"LAMP-LED", "Desk lamp, LED", "piece", 3995},
    {"MARK-4", "Whiteboard markers, set of 4", "set", 520},
    {"NOTE-76", "Sticky notes 76 x 76 mm", "piece", 115},
    {"PAPER-A4", "Copy paper A4, 500 sheets", "pack", 449},
    {"PEN-BL", "Ballpoint pen, blue", "piece", 75},
    {"PUNCH-25", "Hole punch, 25 sheets", "piece", 1340},
    {"SHRED-08", "Shredder, 8 sheets", "piece", 5990},
    {"STAPLE-24", "Staples 24/6, box of 1000", "box", 95},
    {"TAPE-50", "Packing tape 50 mm x 66 m", "piece", 210},
};

constexpr SampleLine samples[] = {
    {"DESK-160", 4, "2026-11-30", false}, {"CHAIR-02", 4, "2026-11-30", false},
    {"LAMP-LED", 6, "2026-11-16", true},  {"PAPER-A4", 250, "2026-11-12", true},
    {"PEN-BL", 1200, "", false},          {"ENV-C5", 15, "2026-11-12", true},
    {"INK-BK", 12, "2026-12-04", false},  {"BIND-A4", 40, "", false},
};

} // namespace

std::vector<Article> shopArticles() {
    std::vector<Article> articles;
    for (const Seed &seed : seeds)
        articles.push_back({QString::fromLatin1(seed.code), QString::fromLatin1(seed.description),
                            QString::fromLatin1(seed.unit), seed.hundredths});
    return articles;
}

std::vector<SampleLine> sampleLines() { return {std::begin(samples), std::end(samples)}; }
