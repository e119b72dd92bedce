#pragma once

/// What a new order file starts with: the articles of a small shop, and some lines to look at.

#include "order_book.h"

#include <vector>

std::vector<Article> shopArticles();

/// By row, as the form shows them.
OrderLines sampleLines();
