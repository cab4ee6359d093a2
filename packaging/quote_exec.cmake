# SPDX-License-Identifier: MIT
# quote_exec(<variable> <path>): a path as the program of a desktop entry's Exec line, where blanks
# and most other signs are reserved.
function(quote_exec variable path)
  if(path MATCHES "[^A-Za-z0-9/._+-]")
    set(path "\"${path}\"")
  endif()
  set(${variable} "${path}" PARENT_SCOPE)
endfunction()
