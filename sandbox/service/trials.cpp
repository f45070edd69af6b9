// SPDX-License-Identifier: MIT
#include "page.h"

namespace {

Reply info(Visit &visit)
{
    return Page(visit.session.language, "info.tpl", visit.say("T_INFO")).reply(visit);
}

// To see what the companion makes of the error page.
Reply errorPage(Visit &visit)
{
    return Page(visit.session.language, "error.tpl", visit.say("T_ERROR")).reply(visit);
}

// The waiting is over before a page gets the database.
Reply slowPage(Visit &visit)
{
    const std::string wanted = value(visit.request.query, "ms");
    if (numberOf(wanted).value_or(longestWait + 1) > longestWait)
        throw Refusal{400};
    Page page(visit.session.language, "slow.tpl", "Vantu");
    page.set("TEXT", visit.say("WAITED", wanted));
    return page.reply(visit);
}

// A page that never arrives whole.
Reply brokenPage(Visit &visit)
{
    Reply reply = info(visit);
    reply.dropped = true;
    return reply;
}

} // namespace

const std::vector<Route> trialRoutes = {
    {"GET", "/vantu/info", Route::Anybody, info},
    {"GET", "/vantu/error", Route::Anybody, errorPage},
    {"GET", "/vantu/slow", Route::Anybody, slowPage},
    {"GET", "/vantu/broken", Route::Anybody, brokenPage},
};
