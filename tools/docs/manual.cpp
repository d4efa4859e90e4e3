#include "documents.h"
#include "syntax.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

constexpr char SCRIPTS[] = R"~(.SS wap\-sh
The same program by its second name, as a login shell and for scripts. Without arguments it is the
console. Otherwise it runs the lines of each
.BR \-c ,
of
.I FILE
or, for
.BR \- ,
of standard input, in order and in one process, without prompt, echo or editing. A
.I LINE
may be several. Lines that are empty or begin with
.BR # ,
after blanks and tabs, are skipped; a last line without a newline counts.
.PP
A line that is unknown or refused ends the run. So does one during which the database or the output
fails or Ctrl\-C ends a tool, and one that could not be typed: longer than 4094 characters, or with
characters that are not printable ASCII, a tab among them. The command's own message is on standard
output; standard error names the line by its number among all lines, as in
.PP
.nf
wap\-sh: line 3: set dtim 99
.fi
.PP
With
.B \-k
the run goes on after such a line, but not after Ctrl\-C, and names all of them at the end.
.B exit
ends the run. Listing a family and
.B "set apply"
with nothing to apply are no failures. A few commands print a refusal and still count as
done. The exit status does not show these: read a setting back when it matters.
.PP
What one process changed,
.B "set apply"
in another one does not restart. Give all lines of a change to one run, with
.B "set apply"
as the last:
.PP
.nf
ssh admin@ap "$(cat change.txt)"
.fi
.PP
Lines given with
.B \-c
show in the device's list of processes while they run. Lines with a passphrase or a password are better
read from a file or from standard input.
)~";

constexpr char BEFORE_COMMANDS[] = R"(.SH NAME
wap\-cli, wap\-sh \- command\-line interface of the access point
.SH SYNOPSIS
.B wap\-cli
.br
.B wap\-sh
.RB [[ \-k ]
.RB ( \-c
.IR LINE " ... |"
.IR FILE " |"
.BR \- )]
.SH DESCRIPTION
Reads commands at the prompt
.RB \(lq WAP\->\~ \(rq
until the end of input or
.BR exit .
Commands show and change the settings in the device's configuration database. A changed value stands
there at once, for every session; the services take it over at
.BR "set apply" .
.SS Words
A line is split at blanks. There are no quotes and no escapes, so that a word never holds a blank:
an SSID or a passphrase with blanks cannot be typed here. Only ASCII can be typed; other characters
are ignored.
.PP
Each word of a command is matched by itself, in capitals or not: a name that it spells in full is
taken, else the first name that begins with it, in the order of
.BR help ,
however many others do. That is not always harmless:
.B r
reboots the device, and
.B "set a"
applies the settings. Tab shows what a word may become. The words behind a command are taken as they
are typed.
.PP
The name of a family alone, such as
.B set
or
.BR "set wmm" ,
lists its commands;
.B help
lists those of all families, and
.B "help all"
every command. Most commands that take words say what they want when they get none.
.SS Keys
.TS
lb l.
Tab	complete the word, or list its choices
Up, Down; Ctrl\-P, Ctrl\-N	the last five lines
Left, Right; Ctrl\-B, Ctrl\-F	move by a character
Home, End; Ctrl\-A, Ctrl\-E	to the beginning, to the end
Backspace; Ctrl\-H	delete before the cursor
Delete; Ctrl\-D	delete at the cursor
Ctrl\-W	delete the word before the cursor
Ctrl\-U, Ctrl\-K	delete to the beginning, to the end
Ctrl\-L	clear the screen
Ctrl\-C	abandon the line; ends no session
Ctrl\-D in an empty line	end the session
.TE
.SS Pipes
Commands may come from a pipe or a file, with a newline behind each: a last line without one is not
carried out. The exit status says nothing about the commands; use
.B wap\-sh
where it must.
.SS Applying
.B "set apply"
saves the settings to flash and restarts the services of the settings that this session changed since
its last one. When it changed none, nothing is saved or restarted: what another session changed, or
this one before it was left and entered again, is not applied. Some commands save or restart at once;
each command below says what
.B "set apply"
restarts for it. Settings that were never saved are lost at the next start of the device.
.SS Hidden and debug commands
Commands marked
.I hidden
below must be typed in full and are not listed. Commands marked
.I debug
do not exist until
.B orvik
with its code unlocks the debug level, for this session; hidden commands are listed then, too. They
serve service and production.
)";

// Typed one after the other.
constexpr const char *EXAMPLE[] = {
    "set ssid Office", "set authentication wpa2-psk",  "set cipher aes",
    "get cipher",      "set passphrase correct-horse", "set apply",
};

constexpr char AFTER_COMMANDS[] = R"(.PP
From a script:
.PP
.nf
printf 'get ssid\enget channel\en' | wap\-cli
.fi
.SH EXIT STATUS
0 at the end of input or after
.BR exit ,
255 when memory ran out at the start. Of
.B wap\-sh
with arguments: 0 when every line was carried out, 1 when one failed, 2 for wrong arguments, when nothing
was run, or lines that could not be read.
.SH FILES
.TP
.I /var/run/xmldb_sock
the socket of the configuration database
.TP
.I /var/log/messages
the log that
.B get syslog
shows
.TP
.I /var/net\-snmp/snmpd.conf
the SNMP agent's file, with the engine ID that
.B snmp showuser
shows
.TP
.I /var/config.bin
a saved configuration, while
.B isfactorydefault
compares it
.TP
.I /tmp
files on their way to or from a server
)";

// A text for troff: backslashes and hyphens are spelled out.
std::string troff(const std::string &text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\\')
            escaped += "\\e";
        else if (c == '-')
            escaped += "\\-";
        else
            escaped += c;
    }
    return escaped;
}

// The same as a line of its own, which must not begin with a control character.
std::string troff_line(const std::string &text) {
    const std::string line = troff(text);
    return line.find_first_of(".'") == 0 ? "\\&" + line : line;
}

// Lets a long choice break after its bars.
std::string troff_syntax(const std::string &syntax) {
    std::string line;
    for (const char c : troff(syntax)) {
        line += c;
        if (c == '|')
            line += "\\:";
    }
    return line;
}

std::uint32_t restarted_by(const Command &command) {
    std::uint32_t bits = 0;
    for (const Session &session : command.sessions)
        bits |= session.prepares ? 0 : session.answer.pending;
    return bits;
}

// Commands that differ in one word only, written as one.
struct Entry {
    std::vector<std::string> syntax;
    std::string help;
    std::string tag;
    std::uint32_t restarted = 0;
    std::string family; // the path without its last word
    std::string words;  // after the path
};

std::string family_of(const std::string &path) {
    const std::size_t blank = path.rfind(' ');
    return blank == std::string::npos ? "" : path.substr(0, blank);
}

std::vector<Entry> entries_of(const Topic &topic) {
    std::vector<Entry> entries;
    for (const Command &command : topic.commands) {
        Entry entry{command.syntax,
                    command.help,
                    command.tag,
                    restarted_by(command),
                    family_of(command.path),
                    command.syntax[0].substr(command.path.size())};
        const bool joins =
            !entries.empty() && topic.commands.size() > 1 && command.syntax.size() == 1 &&
            entries.back().syntax.size() == 1 && entry.family == entries.back().family &&
            entry.words == entries.back().words && entry.restarted == entries.back().restarted;
        if (!joins) {
            entries.push_back(std::move(entry));
            continue;
        }
        Entry &last = entries.back();
        std::string &syntax = last.syntax[0];
        syntax.insert(syntax.size() - last.words.size(),
                      std::string("|").append(command.path, last.family.size() + 1));
        if (last.help.find("; ") == std::string::npos ||
            last.help.size() + command.help.size() < 400)
            last.help += "; " + command.help;
    }
    return entries;
}

void write_entry(std::ostream &out, const Entry &entry) {
    bool first = true;
    for (const std::string &syntax : entry.syntax) {
        out << (first ? ".TP\n" : ".TQ\n") << ".B \"" << troff_syntax(syntax) << "\"\n";
        first = false;
    }
    out << troff_line(entry.help) << (entry.tag.empty() ? "" : " (" + entry.tag + ")") << ".\n";
    if (entry.restarted != 0)
        out << "Restarts: " << troff(service_names(entry.restarted)) << ".\n";
}

void write_commands(std::ostream &out, const std::vector<Topic> &topics) {
    out << ".SH COMMANDS\n.nh\n.ad l\nWords to be filled in:\n";
    for (const WordKind &kind : WORD_KINDS)
        out << ".TP\n.B <" << troff(std::string(kind.name)) << ">\n"
            << troff_line(std::string(kind.meaning)) << '\n';
    out << ".TP\n.B <1\\-15>\na number in that range\n"
           ".TP\n.B <name:1\\-32>\na text of 1 to 32 characters\n";
    std::string section;
    for (const Topic &topic : topics) {
        if (topic.section != section)
            out << ".SS " << troff(topic.section) << '\n';
        section = topic.section;
        for (const Entry &entry : entries_of(topic))
            write_entry(out, entry);
    }
}

void write_services(std::ostream &out) {
    out << ".SH SERVICES\nWhat\n.B set apply\nrestarts, in this order:\n";
    for (const Service &service : services_of(UINT32_MAX)) {
        out << ".TP\n.B " << troff(service.name) << '\n' << troff_line(service.meaning) << '\n';
        for (const std::string &entry : apply_commands(service.bit))
            out << ".br\n" << troff_line(entry.substr(entry.find(' ') + 1)) << '\n';
    }
}

void write_example(std::ostream &out) {
    out << ".SH EXAMPLES\nName the network, protect it and put it to work:\n.PP\n.nf\n";
    restart_trial_device();
    for (const char *line : EXAMPLE) {
        out << "WAP\\-> " << troff(line) << '\n';
        for (const std::string &printed : split_words(type_line(line).output, '\n'))
            out << troff_line(printed) << '\n';
    }
    out << ".fi\n";
}

// What a command line runs: a script under its path, a tool under its name.
std::string program_of(const std::string &line) {
    const std::vector<std::string> words = split_words(line);
    const bool script = words[0] == "sh" && words.size() > 1;
    const std::string &program = words[script ? 1 : 0];
    return program.substr(0, program.find('>'));
}

void write_programs(std::ostream &out, const std::vector<Topic> &topics) {
    std::set<std::string> programs;
    const auto add = [&](const std::vector<std::string> &journal) {
        for (const std::string &entry : journal) {
            if (entry.starts_with("ran "))
                programs.insert(program_of(entry.substr(4)));
        }
    };
    for (const Topic &topic : topics) {
        for (const Command &command : topic.commands) {
            for (const Session &session : command.sessions)
                add(session.answer.journal);
        }
    }
    for (const Service &service : services_of(UINT32_MAX))
        add(apply_commands(service.bit));
    out << ".SH PROGRAMS\nThese programs of the device are run, through\n.IR /bin/sh :\n";
    const char *separator = "";
    for (const std::string &program : programs) {
        out << separator << troff_line(program);
        separator = ",\n";
    }
    out << ".\n";
}

} // namespace

void write_manual(std::ostream &out, const std::vector<Topic> &topics, const std::string &version) {
    out << R"('\" t
.\" Generated by tools/docs from the command tables; do not edit.
.TH WAP\-CLI 8 "" "wap\-cli )"
        << version << R"(" "System administration")" << '\n'
        << BEFORE_COMMANDS << SCRIPTS;
    write_commands(out, topics);
    write_services(out);
    write_example(out);
    out << AFTER_COMMANDS;
    write_programs(out, topics);
}
