#pragma once

/// What a new order file starts with: the articles of a small shop, and some lines to look at.

#include "order_book.h"

#include <vector>

struct SampleLine {
    const char *code = "";
    qint64 quantity = 0;
    /// Empty where nobody knows yet.
    const char *delivery = "";
    bool isDelivered = false;
};

[[nodiscard]] std::vector<Article> shopArticles();
[[nodiscard]] std::vector<SampleLine> sampleLines();
