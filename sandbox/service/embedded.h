// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

/// The files of the service as they were when it was built, page templates and SQL, by name.
extern const std::map<std::string, const char *> embeddedFiles;
