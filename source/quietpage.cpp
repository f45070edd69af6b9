// SPDX-License-Identifier: MIT
#include "quietpage.h"

bool QuietPage::supportsExtension(Extension extension) const
{
    return extension == ErrorPageExtension || QWebPage::supportsExtension(extension);
}

bool QuietPage::extension(Extension extension, const ExtensionOption *option, ExtensionReturn *output)
{
    return extension != ErrorPageExtension && QWebPage::extension(extension, option, output);
}
