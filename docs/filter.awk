# Doxygen's view of the public headers. They are laid out for people: a comment speaks for all declarations below it up
# to the next blank line, a named group speaks for those of its members that have no comment, and what every class does
# alike is not repeated. Doxygen wants a comment on each, so each gets one here; no line changes its number. Its own means
# do not serve: DISTRIBUTE_GROUP_DOC needs marks around every such paragraph, and EXTRACT_ALL notices no missing comment.

function text_of(line) {
    sub(/^[ \t]*\/\/\/ ?/, "", line)
    return line
}

function joined(first, second) {
    return first == "" || second == "" ? first second : first " " second
}

# What is said of a declaration without a comment.
function shared_text(line) {
    if (line ~ /operator!=/)
        return "The negation of operator==()."
    if (line ~ /operator=\(const /)
        return "Copies all fields; texts and lists share their data until one side changes."
    if (line ~ /operator=\([A-Za-z]+ &&/)
        return "Takes over numbers and flags and exchanges texts and lists with the source."
    if (match(line, /[A-Za-z]+\((const )?[A-Za-z]+ &/)) {
        split(substr(line, RSTART, RLENGTH), names, /\((const )?| &/)
        if (names[1] == names[2])
            return line ~ /&&/ ? "Copies all fields; the source keeps what it holds." \
                               : "Copies all fields; texts and lists share their data until one side changes."
    }
    return line ~ / override;/ ? "" : joined(comment, group) # what overrides inherits its comment
}

function count(line, pattern) {
    return gsub(pattern, "&", line)
}

/^[ \t]*$/ {
    comment = ""
}

/^[ \t]*\/\/\// {
    text = text_of($0)
    if (text ~ /^\\name /) {
        in_group_text = 1
        group = comment = ""
    } else if (text == "@{") {
        in_group_text = 0
    } else if (text == "@}") {
        group = comment = ""
    } else if (text ~ /^\\(cond|endcond)/) {
        comment = ""
    } else if (in_group_text) {
        group = joined(group, text)
    } else {
        comment = commented ? joined(comment, text) : text
        commented = 1
    }
    print
    next
}

# A scope begins: its comment is not that of its members.
/^[ \t]*(class|struct|enum|namespace) .*[{]$/ {
    in_enumeration = $1 == "enum"
    comment = ""
    commented = continued = braces = 0
    print
    next
}

in_enumeration {
    in_enumeration = $0 !~ /[}]/
    print
    next
}

/^[ \t]*($|#|\/\/|[}]|using |public:|protected:|private:|QT_|Q_)/ && !continued {
    print
    next
}

{
    is_start = !continued
    braces += count($0, "[{]") - count($0, "[}]")
    continued = braces > 0 || $0 !~ /[;}]( \/\/.*)?$/
    if (is_start && !commented && $1 != "template") {
        text = shared_text($0)
        if (text != "" && match($0, /[^ \t]/))
            $0 = substr($0, 1, RSTART - 1) "/** " text " */ " substr($0, RSTART)
    }
    commented = 0
    print
}
