# SPDX-License-Identifier: MIT
# quote_exec(<variable> <path>): quotes a path for the Exec line of a desktop entry, where spaces
# and most other special characters are reserved.
function(quote_exec variable path)
  if(path MATCHES "[^A-Za-z0-9/._+-]")
    set(path "\"${path}\"")
  endif()
  set(${variable} "${path}" PARENT_SCOPE)
endfunction()
