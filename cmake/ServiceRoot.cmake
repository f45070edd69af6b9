# SPDX-License-Identifier: MIT

# Every rule of the companion compares whole addresses, so the root must be spelled as the web engine spells the address
# of a page. Also a script: cmake -D ROOT=http://... -P cmake/ServiceRoot.cmake

# The spelling of the engine where it can be told from @p root.
function(vantu_spelled_root root result)
    string(STRIP "${root}" root)
    string(REGEX REPLACE "[?#].*$" "" root "${root}")
    string(REGEX REPLACE "/+$" "" root "${root}")
    if(root MATCHES "^([A-Za-z]+)://([^/]*)(.*)$")
        string(TOLOWER "${CMAKE_MATCH_1}" scheme)
        string(TOLOWER "${CMAKE_MATCH_2}" host)
        set(path "${CMAKE_MATCH_3}")
        string(REGEX REPLACE "^.*@" "" host "${host}")
        string(REGEX REPLACE ":0*([0-9]*)$" ":\\1" host "${host}")
        set(default_of_http 80)
        set(default_of_https 443)
        string(REGEX REPLACE ":(${default_of_${scheme}})?$" "" host "${host}")
        set(root "${scheme}://${host}${path}")
    endif()
    set(${result} "${root}" PARENT_SCOPE)
endfunction()

function(vantu_check_service_root root)
    # Numbers of IPv6 in brackets are left to whoever writes them: few do.
    set(shape "^https?://([a-z0-9_]([-a-z0-9_]*[a-z0-9_])?(\\.[a-z0-9_]([-a-z0-9_]*[a-z0-9_])?)*|\\[[0-9a-f:.]+\\])(:[1-9][0-9]*)?(/[-A-Za-z0-9._~!$&'()*+,=:@]+)*$")
    vantu_spelled_root("${root}" spelled)
    if(NOT spelled MATCHES "${shape}" OR spelled MATCHES "/\\.\\.?(/|$)")
        message(FATAL_ERROR "VANTU_SERVICE_ROOT must begin with http:// or https:// and name a host, in the letters that "
            "the web engine shows (a host beyond ASCII as xn--...), without blanks and percent signs: \"${root}\"")
    elseif(NOT root STREQUAL spelled)
        message(FATAL_ERROR "VANTU_SERVICE_ROOT must be spelled as the web engine spells it, \"${spelled}\": \"${root}\"")
    endif()
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
    vantu_check_service_root("${ROOT}")
endif()
