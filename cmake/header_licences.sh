#!/usr/bin/env bash
# Prints the terms of a library that is nothing but headers, parts of which are compiled into what the packages hold.
# usage: cmake/header_licences.sh cli11|nlohmann-json|boost|highway
set -euo pipefail

terms_of() { cat "/usr/share/doc/$1/copyright"; }

case "$1" in
  cli11) terms_of libcli11-dev ;;
  nlohmann-json) terms_of nlohmann-json3-dev ;;
  highway) terms_of libhwy-dev ;;
  boost)
    # The package's list of all parts of boost is megabytes long; what is included is under the one licence of most.
    package="$(dpkg-query --search /usr/include/boost/version.hpp)"
    terms_of "${package%%:*}" | awk -v RS= '/^License: BSL-1.0\n/ { print; found = 1 } END { exit !found }'
    ;;
  *)
    printf 'header licences: there is no library "%s"\n' "$1" >&2
    exit 1
    ;;
esac
