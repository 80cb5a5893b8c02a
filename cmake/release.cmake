# Version, date and changes of the program stand in debian/changelog alone. This file reads them:
#   LOOKFAR_VERSION, LOOKFAR_RELEASE_DATE    of the newest release; the date as YYYY-MM-DD
#   LOOKFAR_RELEASE_YEAR                     the year in that date
#   LOOKFAR_RELEASES                         every release in the form of AppStream, newest first

set(changelog ${CMAKE_CURRENT_LIST_DIR}/../debian/changelog)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})

# Turns the date at the end of a release, such as Wed, 25 Nov 2026 02:30:00 +0000, into 2026-11-25.
function(read_release_date line result)
    set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
    if(NOT line MATCHES ">  [A-Z][a-z]+, +([0-9]+) ([A-Z][a-z]+) ([0-9]+) ")
        message(FATAL_ERROR "${changelog} has no date in this line: ${line}")
    endif()
    set(day 0${CMAKE_MATCH_1})
    set(year ${CMAKE_MATCH_3})
    list(FIND months ${CMAKE_MATCH_2} month)
    math(EXPR month "${month} + 1")
    string(REGEX MATCH "..$" day ${day})
    string(REGEX MATCH "..$" month 0${month})
    set(${result} ${year}-${month}-${day} PARENT_SCOPE)
endfunction()

function(escape_markup text result)
    string(REPLACE "&" "&amp;" text "${text}")
    string(REPLACE "<" "&lt;" text "${text}")
    string(REPLACE ">" "&gt;" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

function(describe_release version date changes result)
    string(JOIN "\n" description
        "    <release version=\"${version}\" date=\"${date}\">"
        "      <description>"
        "        <ul>${changes}"
        "        </ul>"
        "      </description>"
        "    </release>")
    set(${result} "${description}" PARENT_SCOPE)
endfunction()

# A release is a line with its version, changes that begin with a star and go on in lines that are
# set in deeper, and a line with its date. Text is cut by lines here, since brackets and semicolons
# are not safe in a list.
file(READ ${changelog} rest)
while(rest MATCHES "^([^\n]*)\n(.*)$")
    set(line "${CMAKE_MATCH_1}")
    set(rest "${CMAKE_MATCH_2}")
    escape_markup("${line}" text)
    if(line MATCHES "^lookfar \\(([0-9.]+)\\) ")
        set(version ${CMAKE_MATCH_1})
        set(changes "")
        set(end_of_change "")
    elseif(text MATCHES "^  \\* (.+)$")
        string(APPEND changes "${end_of_change}\n          <li>${CMAKE_MATCH_1}")
        set(end_of_change "</li>")
    elseif(text MATCHES "^    (.+)$")
        string(APPEND changes " ${CMAKE_MATCH_1}")
    elseif(line MATCHES "^ -- ")
        read_release_date("${line}" date)
        describe_release(${version} ${date} "${changes}${end_of_change}" release)
        list(APPEND versions ${version})
        list(APPEND dates ${date})
        string(APPEND LOOKFAR_RELEASES "${release}\n")
    elseif(NOT line STREQUAL "")
        message(FATAL_ERROR "${changelog} has a line that is of no release: ${line}")
    endif()
endwhile()

list(GET versions 0 LOOKFAR_VERSION)
list(GET dates 0 LOOKFAR_RELEASE_DATE)
string(SUBSTRING ${LOOKFAR_RELEASE_DATE} 0 4 LOOKFAR_RELEASE_YEAR)
string(STRIP "${LOOKFAR_RELEASES}" LOOKFAR_RELEASES)
