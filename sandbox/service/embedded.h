// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// A page template as it was when the service was built.
struct EmbeddedTemplate {
    const char *name;
    const char *text;
};

extern const std::vector<EmbeddedTemplate> embeddedTemplates;
