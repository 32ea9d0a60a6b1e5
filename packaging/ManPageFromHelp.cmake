# Writes the manual page of brindle-cli from its own --help, so the page says
# what the program does. Run as cmake -P with CLI (the program), OUTPUT (the
# page) and VERSION.
execute_process(COMMAND "${CLI}" --help OUTPUT_VARIABLE help RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${CLI} --help failed: ${status}")
endif()
# roff reads a backslash as an escape and a line starting with a dot or an
# apostrophe as a request.
string(REPLACE "\\" "\\e" help "${help}")
string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" help "${help}")
file(WRITE "${OUTPUT}"
".TH BRINDLE-CLI 1 \"2026\" \"Brindle ${VERSION}\" \"User Commands\"
.SH NAME
brindle-cli \\- read, extract and insert the texture tables of Tomb Raider 2 and 3 levels
.SH SYNOPSIS
.B brindle-cli
.I COMMAND
\\&...
.SH DESCRIPTION
.B brindle-cli
gives the jobs of the
.BR brindle (1)
editor to scripts: it shows a level's table positions, makes a texture list
from a level, dumps a list, writes a level carrying a list's tables, writes a
level's texture tiles as a bitmap, and lists the textures a level uses.
Levels are only ever read.
.PP
What
.B brindle-cli --help
prints:
.PP
.nf
${help}.fi
.SH SEE ALSO
.BR brindle (1)
")
