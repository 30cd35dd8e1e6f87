# vantiro_check_subscription_url(<url>): ends the configuration unless the address of the subscription
# service is https://HOST..., without a trailing slash: keys and passwords travel there, and the
# program appends the path.
#
# As a script: cmake -D URL=... -P CheckSubscriptionUrl.cmake

function(vantiro_check_subscription_url url)
    if(NOT url MATCHES "^https://[^/?#]+")
        message(FATAL_ERROR
            "VANTIRO_SUBSCRIPTION_BASE_URL must begin with https:// and a host, but is \"${url}\"")
    endif()
    if(url MATCHES "/$")
        message(FATAL_ERROR
            "VANTIRO_SUBSCRIPTION_BASE_URL must not end in a slash, but is \"${url}\"")
    endif()
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
    vantiro_check_subscription_url("${URL}")
endif()
