// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The country (two upper-case letters, ISO 3166) of a mobile country code (three digits, ITU-T E.212); empty for
/// codes that belong to no country, and for anything else.
QString countryOfMobileCode(const QString &code);
