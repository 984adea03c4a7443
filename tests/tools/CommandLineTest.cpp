#include <tests/support/ToolSupport.h>

using namespace ToolSupport;

namespace {

const QString Commands =
    "check, show, report, table, diff, format, set, fix, new, list, help"; // as messages list them

} // namespace

class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void help_data();
    void help();
    void version_data();
    void version();
    void wrongCalls_data();
    void wrongCalls();
    void filesTakenForOptions_data();
    void filesTakenForOptions();
    void anyLocale_data();
    void anyLocale();
    void fullOutput();
    void closedOutput_data();
    void closedOutput();
    void closedStreams_data();
    void closedStreams();
    void colours_data();
    void colours();
};

void CommandLineTest::help_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("text");

    const QString ofTool = R"text(Usage: kormak COMMAND [OPTIONS] ARGUMENT...

Checks, shows, compares, rewrites and makes the XML documents of a
radio-monitoring system: jobs, automatic workflows, settings of activity
generation, receivers and their parameters.

Results go to standard output, complaints to standard error. The file name -
stands for standard input; names that begin with a dash stand behind --. What
cannot be printed, in names or in documents, is shown as an escape, such as \n
or \u202e.

Commands:
  check PATH...               tell everything that is wrong with documents
  show FILE                   show what a document holds
  report PATH...              make pages about documents for people
  table PATH...               tell what many documents hold, in a table
  diff FILE FILE              tell in which fields two documents differ
  format FILE...              rewrite documents as the library writes them
  set FILE... FIELD=VALUE...  change fields, and no other byte of a document
  fix FILE...                 put right what is certain, and name the rest
  new KIND                    make a document from the fields you give
  list [VOCABULARY]           list the names that fields can hold
  help [COMMAND]              show the help of the tool or of a command

Options:
  -h, --help         Show this help.
  -v, -V, --version  Show the version of the tool.

Exit status:
  0  all is well
  1  a document is at fault or would change, or two documents differ
  2  a file cannot be read or written, or the call is wrong

Example:
  kormak new Job --set JobHeader.JobType=Antenna \
      --set JobHeader.Author="M. Keller" --set JobHeader.Creation=now \
      --set ResourceType=Antenna --set AntennaData.Name=North \
      --set AntennaData.MinimumFrequency=1.5e6 \
      --set AntennaData.MaximumFrequency=30e6 -o job.xml
  kormak check job.xml

'kormak COMMAND --help' tells more about a command.
)text";
    const QString ofCheck = R"text(Usage: kormak check [OPTIONS] PATH...

Tells of each file what kind of document it is, whether it is complete, and
everything that is wrong with it. Of a folder, the files called *.xml are
checked, in the order of their names, hidden ones left out. Links to folders
are followed; a warning tells of a folder that would be gone through again.
More than one file, or a folder, is summed up in the end: how many files are
good, with warnings, never written (the library accepts the document, but would
write nothing for it), at fault, or unreadable.

What is wrong goes to standard error, one thing in a line:
  FILE:LINE:COLUMN: SEVERITY: PATH: MESSAGE
PATH is the element or attribute, such as Job/JobHeader/Author. SEVERITY is
"error" where the library refuses the document. It is "warning" where the
library accepts the document, but does not read what is there, or not as it
looks, or where something is allowed but hardly meant, such as a latitude of
95.

With --format json everything goes to standard output, an object in each line.
"type" tells what an object is and which members follow:
  finding  file, line, column, severity, id, path, message, found, allowed,
           complaint, suggestion, correction
  file     behind its findings: file, status, kind, complete, findings (how
           many)
  summary  in the end: files, good, withWarnings, neverWritten, faulty,
           unreadable (how many of each); with findings left
           out also known (files), knownFindings
line and column count from 1. status is good where the library accepts the
document, else faulty or unreadable; complete is false for what is never
written. found is the text that is there, allowed lists the names that could be
there, complaint is what the library says. suggestion is there where it is
certain what was meant; correction tells what to do with it: text, put it in
place of what was found; name, call the element or attribute so; element, put
an element of the attribute's name with that text in place of the attribute.
What does not apply is null, or an empty list. A byte of a name that is not
UTF-8, such as 0xfc, is \udcfc. A folder that would be gone through again has a
finding, but no file.

--severity ID=error makes a warning an error, ID=warning a warning and ID=off
nothing. A file kormak.ini in the folder of a document or the next folder above
says the same for all who check documents there:
  [severity]
  suspicious-latitude=error
  repeated=off
Options come first. What the library refuses a document for stays an error,
whatever is said, and tells that.

--write-baseline writes how many findings of which id there are at which path
of which file; with --baseline, so many are left out, errors included, and only
what is new is told and counts. The summary tells how many are left out. Names
of files are relative to the folder of the baseline.

With --format sarif, standard output is a log in SARIF 2.1.0 with all findings,
and with --format github an annotation for each, as workflows on GitHub read
them, and the summary. Names of files are relative to where the tool runs, as
they are given.

id is one of bad-value, beyond-limit, declared-encoding, encoding,
misplaced-element, missing-attribute, missing-element, not-well-formed,
refused, repeated, stray-text, suspicious, suspicious-antenna, suspicious-area,
suspicious-azimuth, suspicious-creation, suspicious-latitude,
suspicious-longitude, suspicious-range, suspicious-version, unknown-attribute,
unknown-element, unknown-kind, unread, unreadable.

The PATH - is standard input.

Options:
  -r, --recursive         Go through the folders below a folder, too.
  -j, --jobs N            Check N files at once (default: 1 per core, most: 4).
  --strict                Warnings and what is never written count as faults.
  -q, --quiet             Tell only what is wrong.
  --severity ID=SEVERITY  How much findings with an id matter; can be repeated.
  --baseline FILE         Leave out what FILE has.
  --write-baseline FILE   Write to FILE what is to be left out later.
  --format FORMAT         text (the default), json, sarif or github.
  --limit-attributes N    Most attributes of an element (default: 100).
  --limit-depth N         Most elements in one another (default: 1000).
  --limit-entities N      Most characters from entities (default: 1048576).
  -h, --help              Show this help.

Exit status:
  0  all documents are good, with warnings or without
  1  a document is at fault or, with --strict, has warnings or is never written
  2  a file cannot be read

Example:
  kormak check -r --format json jobs settings/workflow.xml
)text";
    const QString ofShow = R"text(Usage: kormak show [OPTIONS] FILE

Tells whether the document is complete and, if not, why; then what it holds:
labels, values and their units. Where the document says something else than
what is understood, that stands beside it, as in 0 Hz (document says "1.5
MHz"). A document that is not complete is shown, too, and of one that is not
read to its end what can be read; standard error tells what it is refused for.

The parameters of a receiver are a table. On a terminal it is no wider than
that, and what has no room in a row stands beneath it; COLUMNS may tell another
width. --parameter shows single parameters in full, a field in a line.

JSON holds every field, called as the commands new and diff call it, and null
for what is not set. documentSays, if there is something to tell, has what the
document says instead, by the path of the field.

GeoJSON (RFC 7946) holds the area that a workflow is limited to: a polygon,
which is cut where it crosses 180 degrees; a line for two coordinates, a point
for one.

The FILE - is standard input.

Options:
  --parameter NAME      Show this parameter of a receiver in full (repeatable).
  --wide                Show tables as wide as they are, also on a terminal.
  --format FORMAT       text (the default), json or geojson.
  --limit-attributes N  Most attributes of an element (default: 100).
  --limit-depth N       Most elements in one another (default: 1000).
  --limit-entities N    Most characters from entities (default: 1048576).
  -h, --help            Show this help.

Exit status:
  0  the document is shown
  1  the document is not read to its end, or has no area to show on a map
  2  FILE cannot be read

Example:
  kormak show --format json job.xml
  kormak show --parameter Gain --parameter Level receiver.xml
)text";
    const QString ofDiff = R"text(Usage: kormak diff [OPTIONS] FILE FILE

Compares what two documents of one kind hold, however they are written, and
tells of each field that differs in a line:
  FIELD: BEFORE -> AFTER
Parameters are matched by their unique names, elements of lists by their
places. What only one of the documents has is said to be removed or added. NaN
is taken to equal NaN.

Programs that compare documents with the library may get another result, since
it leaves out some fields, and NaN equals nothing there. If they do, a last
line says so.

The FILE - is standard input.

Options:
  --format FORMAT       text (for people, the default) or json (for scripts).
  --limit-attributes N  Most attributes of an element (default: 100).
  --limit-depth N       Most elements in one another (default: 1000).
  --limit-entities N    Most characters from entities (default: 1048576).
  -h, --help            Show this help.

Exit status:
  0  no field differs
  1  some fields differ
  2  a document cannot be read, or the documents are of different kinds

Example:
  kormak diff old.xml new.xml
)text";
    const QString ofFormat = R"text(Usage: kormak format [OPTIONS] FILE...

Reads a document and writes it in the order and layout that the library gives
it, to standard output unless told otherwise. With --in-place or --check there
can be several files. Those that would not change are left alone; the names of
the others go to standard output, one in a line.

The library drops what it does not know. Before something of FILE gets lost in
that way, nothing is written, and standard error tells what it is, one thing in
a line:
  FILE:LINE:COLUMN: loss: PATH: MESSAGE

Not all that the library writes it reads again: the mode of a workflow, the
type of a boolean parameter and the default of a string stand elsewhere in what
it writes, and numbers have few digits. With --readable, everything is written
where it is read, be the document complete or not, also what stands where the
library writes it.

The FILE - is standard input.

Options:
  -o OUT                Write to the file OUT, not to standard output.
  --in-place            Write each document to the FILE that it comes from.
  --check               Write nothing, but tell which FILE would change.
  --readable            Write what is read back, not what the library writes.
  --drop-comments       Write even if comments are lost.
  --limit-attributes N  Most attributes of an element (default: 100).
  --limit-depth N       Most elements in one another (default: 1000).
  --limit-entities N    Most characters from entities (default: 1048576).
  -h, --help            Show this help.

Exit status:
  0  all documents are written, or need not be
  1  a document is at fault, something would be lost, or --check names a FILE
  2  a file cannot be read or written

Example:
  kormak format --in-place jobs/*.xml
)text";
    const QString ofSet = R"text(Usage: kormak set [OPTIONS] FILE... FIELD=VALUE...

Changes what documents say of fields, called as the commands new, show and diff
call them. All that is not changed stays byte for byte: comments, order,
blanks, line ends and what the library passes over. What is not there yet is
added where the library would write it. The document goes to standard output
unless told otherwise; with --in-place or --dry-run there can be several files,
and --in-place names those that changed.

What is written is read again: when it says anything else than what was asked,
or 'check' finds fault with it that was not there before, nothing is written,
and standard error tells why.

  JobHeader.Author=Keller               a field, added if it is not there
  Area.Coordinate[2].Latitude=48.2      of the third element of a list
  Area.Coordinate=52.1,13.4             adds an element
  Parameter[Gain].Integer.Maximum=60    of a parameter, added as needed
  Enum.EnumValue[Key=7].Name=B          of an entry, by its key
  --unset 'Parameter[Gain]'             removes it
--from takes an object as 'kormak show --format json' prints it, or its fields
alone; --area takes what 'kormak show --format geojson' prints, or other
GeoJSON with one polygon. Files stand before the fields; one whose name looks
like a field is given as ./NAME.

The FILE - is standard input.

Options:
  --unset FIELD         Remove a field; can be given many times.
  --from FILE           Set what the JSON in FILE names; null unsets.
  --area FILE           Give the area the outline in FILE, GeoJSON (RFC 7946).
  -o OUT                Write to the file OUT, not to standard output.
  --in-place            Write each document to the FILE that it comes from.
  --dry-run             Write nothing, but show what would change (diff).
  --accept-findings     Change it even if 'check' finds new fault with it.
  --limit-attributes N  Most attributes of an element (default: 100).
  --limit-depth N       Most elements in one another (default: 1000).
  --limit-entities N    Most characters from entities (default: 1048576).
  -h, --help            Show this help.

Exit status:
  0  all documents are changed, or need not be
  1  a document cannot be changed so
  2  the call is wrong, or a file cannot be read or written

Example:
  kormak set --in-place jobs/*.xml JobHeader.Author=Keller
)text";

    const QString ofFix = R"text(Usage: kormak fix [OPTIONS] FILE...

Corrects what 'check' finds and has a certain remedy for: a name in another
case or a letter away, a tag in another case, a number with a comma, a time in
another form, a value that stands where the library writes it, but does not
read it. All else stays byte for byte, as 'set' leaves it. The document goes to
standard output unless told otherwise; with --in-place or --dry-run there can
be several files, and --in-place names those that changed.

Standard error tells what was corrected, and what remains to be put right by
people:
  FILE:LINE:COLUMN: corrected: PATH: MESSAGE
  FILE:LINE:COLUMN: error: PATH: MESSAGE

The FILE - is standard input.

Options:
  -o OUT                Write to the file OUT, not to standard output.
  --in-place            Write each document to the FILE that it comes from.
  --dry-run             Write nothing, but show what would change (diff).
  --limit-attributes N  Most attributes of an element (default: 100).
  --limit-depth N       Most elements in one another (default: 1000).
  --limit-entities N    Most characters from entities (default: 1048576).
  -h, --help            Show this help.

Exit status:
  0  no document is at fault, or no longer
  1  a document is still at fault
  2  a file cannot be read or written

Example:
  kormak fix --dry-run jobs/*.xml
)text";

    const QString ofReport = R"text(Usage: kormak report [OPTIONS] PATH...

Makes a page in HTML of each document: what it says, in words, tables and
drawings, areas on a map, and everything that is wrong with it, beside what it
is about. A document that is at fault gets a page, too. The pages need no other
files, run no scripts and print well.

The page of one FILE goes to standard output unless told otherwise. Of several
files, or of the files called *.xml in a folder, the pages are written to the
folder OUT, which is made if there is none, with a list of all documents,
index.html, whose name goes to standard output. --sort orders it by name, kind,
state (the refused first), findings (the most first), author, time (the latest
first) or resource.

The PATH - is standard input.

Options:
  -o OUT                Write to the file or folder OUT.
  -r, --recursive       Go through the folders below a folder, too.
  --sort ORDER          What the index goes by (default: name).
  --limit-attributes N  Most attributes of an element (default: 100).
  --limit-depth N       Most elements in one another (default: 1000).
  --limit-entities N    Most characters from entities (default: 1048576).
  -h, --help            Show this help.

Exit status:
  0  all pages are written
  1  all pages are written, and a document is at fault
  2  a file cannot be read or written

Example:
  kormak report -o pages --sort time jobs settings/workflow.xml
)text";

    const QString ofNew = R"text(Usage: kormak new [OPTIONS] KIND

Makes a document of the given KIND, or changes a copy of one. What is not set
has the library's default. The document goes to standard output, unless told
otherwise, in the form that is read back as it was set; 'kormak check' accepts
it. When something is wrong, is missing or would not be read back, nothing is
written, and standard error tells all of it.

--list-fields lists the fields. They are called as 'kormak show --format json'
calls them:
  JobHeader.Author=Keller            Author in the object JobHeader
  Area.Coordinate[0].Latitude=52.1   of the first element of a list
  Area.Coordinate=52.1,13.4          adds an element, all its values at once
  Parameter[Gain].DisplayName=Gain   of a parameter, by its unique name
In a unique name, write \] for ] and \\ for \. The order of the --set does not
matter, but for elements that are added to a list.

With --template, what the document in FILE says and the new one would not say
is named on standard error.

A KIND is one of: Job, AutomaticWorkflow, ActivityGeneration, GenericReceiver,
Parameter.

Options:
  --set FIELD=VALUE     Set a field; can be given many times.
  --template FILE       Start from the document in FILE.
  -o OUT                Write to the file OUT, not to standard output.
  --list-fields         List the fields of KIND and what they can be set to.
  --format FORMAT       text (for people, the default) or json (for scripts).
  --limit-attributes N  Most attributes of an element (default: 100).
  --limit-depth N       Most elements in one another (default: 1000).
  --limit-entities N    Most characters from entities (default: 1048576).
  -h, --help            Show this help.

Exit status:
  0  the document is written
  1  the document is not complete, or something would be lost
  2  there is no such kind, field or value, or a file cannot be read or written

Example:
  kormak new GenericReceiver -o receiver.xml \
      --set 'Parameter[Gain].ParameterType=Integer' \
      --set 'Parameter[Gain].ValueType=ValueNumericInt' \
      --set 'Parameter[Gain].RepresentationName=rx.gain' \
      --set 'Parameter[Gain].Integer.Minimum=0' \
      --set 'Parameter[Gain].Integer.Maximum=40'
)text";
    const QString ofTable = R"text(Usage: kormak table [OPTIONS] PATH...

Makes a row of each document, or with --each Parameter of each parameter of
receivers, and a column of each field. Fields are called as the commands show
and new call them, those of a parameter without the name of the parameter in
front, as Integer.Minimum; besides, there are file, kind and complete. Unless
told otherwise, the columns are the file, the kind and what documents of the
kind have to say to be complete; where the kind changes, another table begins.
Of a folder, the files called *.xml are read, as by check.

A CONDITION is one of
  FIELD = VALUE     FIELD != VALUE    FIELD contains TEXT
  FIELD < VALUE     FIELD <= VALUE    FIELD is set
  FIELD > VALUE     FIELD >= VALUE    FIELD is not set
Values are written as for new --set, in the units of the fields; of a date, the
time can be left out, and is then the beginning of the day in UTC. Only numbers
and dates are less or more than others. For a field that is not set, only the
last holds.

CSV is as RFC 4180 has it, in UTF-8, with a line for the names of the columns;
texts stand there as the documents have them, and what is not set is empty. It
has one table: a document of another kind than the first is refused unless
--columns are given. JSON is an object in each line, with null for what is not
set. Without --sort, rows are written as soon as they are known, as text some
hundred at a time.

A document that the library refuses has no row; standard error tells why. It
also tells where a column, condition or sorting is about something that a
document says and the library reads otherwise.

The PATH - is standard input.

Options:
  -r, --recursive       Go through the folders below a folder, too.
  -j, --jobs N          Read N files at once (default: 1 per core, most: 4).
  --columns FIELD,...   The columns, separated by commas.
  --where CONDITION     Only rows for which this holds; can be repeated.
  --sort FIELD          Sort by this, not by the order of the files.
  --each PART           A row for each Parameter, not for each document.
  --format FORMAT       text (the default), csv or json.
  --limit-attributes N  Most attributes of an element (default: 100).
  --limit-depth N       Most elements in one another (default: 1000).
  --limit-entities N    Most characters from entities (default: 1048576).
  -h, --help            Show this help.

Exit status:
  0  all documents have been read
  1  a document is at fault, or its kind does not fit into the CSV
  2  a file cannot be read

Example:
  kormak table -r jobs --where 'AntennaData.MaximumFrequency > 30e6' \
      --columns file,JobHeader.Author,AntennaData.Name --format csv >jobs.csv
  sqlite3 :memory: '.import --csv jobs.csv jobs' \
      'SELECT "AntennaData.Name", count(*) FROM jobs GROUP BY 1'
)text";
    const QString ofList = R"text(Usage: kormak list [OPTIONS] [VOCABULARY]

Some fields hold one of several names, such as the type of a job. Without an
argument, lists these vocabularies. With one of them, lists its names, each
behind its number.

Where the library writes another name than the one that it reads, that stands
behind the name.

Options:
  --format FORMAT  text (for people, the default) or json (for scripts).
  -h, --help       Show this help.

Exit status:
  0  the names are listed
  2  there is no such vocabulary

Example:
  kormak list JobType
)text";

    const QString ofHelp = R"text(Usage: kormak help [OPTIONS] [COMMAND]

Shows what 'kormak --help' shows, with a COMMAND what 'kormak COMMAND --help'
shows.

Options:
  -h, --help  Show this help.

Exit status:
  0  the help is shown
  2  there is no such command

Example:
  kormak help check
)text";

    QTest::newRow("tool") << QStringList{"--help"} << ofTool;
    QTest::newRow("tool, short") << QStringList{"-h"} << ofTool;
    QTest::newRow("check") << QStringList{"check", "--help"} << ofCheck;
    QTest::newRow("check, short") << QStringList{"check", "-h"} << ofCheck;
    QTest::newRow("check, behind a file") << QStringList{"check", "job.xml", "--help"} << ofCheck;
    QTest::newRow("show") << QStringList{"show", "--help"} << ofShow;
    QTest::newRow("diff") << QStringList{"diff", "--help"} << ofDiff;
    QTest::newRow("format") << QStringList{"format", "--help"} << ofFormat;
    QTest::newRow("set") << QStringList{"set", "--help"} << ofSet;
    QTest::newRow("fix") << QStringList{"fix", "--help"} << ofFix;
    QTest::newRow("report") << QStringList{"report", "--help"} << ofReport;
    QTest::newRow("new") << QStringList{"new", "--help"} << ofNew;
    QTest::newRow("table") << QStringList{"table", "--help"} << ofTable;
    QTest::newRow("list") << QStringList{"list", "--help"} << ofList;
    QTest::newRow("tool, as a command") << QStringList{"help"} << ofTool;
    QTest::newRow("check, as a command") << QStringList{"help", "check"} << ofCheck;
    QTest::newRow("list, as a command") << QStringList{"help", "list"} << ofList;
    QTest::newRow("help") << QStringList{"help", "help"} << ofHelp;
    QTest::newRow("help, as an option") << QStringList{"help", "--help"} << ofHelp;
}

void CommandLineTest::help()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, text);

    const Run result = Folder().run(arguments);
    QCOMPARE(result.out, text);
    QCOMPARE(result.err, QString());
    QCOMPARE(result.status, 0);
    const QStringList lines = text.split('\n');
    for (const QString &line : lines)
        QVERIFY2(line.size() < 80, qPrintable(line)); // fits a terminal of 80 columns
}

void CommandLineTest::version_data()
{
    QTest::addColumn<QString>("option");

    QTest::newRow("long") << "--version";
    QTest::newRow("short") << "-v";
    QTest::newRow("short, in capitals") << "-V";
}

void CommandLineTest::version()
{
    QFETCH(QString, option);

    const Run result = Folder().run({option});
    QCOMPARE(result.out, QString("kormak " KORMAK_VERSION "\n"));
    QCOMPARE(result.err, QString());
    QCOMPARE(result.status, 0);
}

void CommandLineTest::wrongCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("no arguments") << QStringList()
                                  << "Usage: kormak COMMAND [OPTIONS] ARGUMENT...\n"
                                     "Commands: "
            + Commands + "\nTry 'kormak --help'.\n";
    QTest::newRow("unknown command") << QStringList{"chek", "job.xml"}
                                     << "kormak: Unknown command 'chek'; did you mean \"check\"? Allowed: "
            + Commands + "\n";
    QTest::newRow("command in capitals")
        << QStringList{"Check", "job.xml"}
        << "kormak: Unknown command 'Check'; did you mean \"check\"? Allowed: " + Commands + "\n";
    QTest::newRow("unknown option of the tool")
        << QStringList{"--foo"} << "kormak: Unknown option 'foo'. Allowed: -h, --help, -v, -V, --version\n";
    QTest::newRow("unknown option of check")
        << QStringList{"check", "--foo", "job.xml"}
        << "kormak check: Unknown option 'foo'. Allowed: -r, "
           "--recursive, -j, --jobs N, --strict, -q, --quiet, --severity ID=SEVERITY, --baseline FILE, "
           "--write-baseline FILE, --format FORMAT, --limit-attributes N, "
           "--limit-depth N, --limit-entities N, -h, --help\n";
    QTest::newRow("option of the tool behind a command")
        << QStringList{"show", "--version", "job.xml"}
        << "kormak show: Unknown option 'version'. Allowed: --parameter NAME, --wide, --format FORMAT, "
           "--limit-attributes N, "
           "--limit-depth N, --limit-entities N, -h, --help\n";
    QTest::newRow("unknown option of format")
        << QStringList{"format", "job.xml", "--bar"}
        << "kormak format: Unknown option 'bar'. Allowed: -o OUT, --in-place, --check, --readable, "
           "--drop-comments, "
           "--limit-attributes N, --limit-depth N, --limit-entities N, -h, --help\n";
    QTest::newRow("option without its value")
        << QStringList{"format", "job.xml", "-o"}
        << "kormak format: Missing value after '-o'. Allowed: -o OUT, "
           "--in-place, --check, --readable, --drop-comments, --limit-attributes N, "
           "--limit-depth N, --limit-entities N, -h, --help\n";
    QTest::newRow("check without a file") << QStringList{"check"} << "kormak check: no PATH given\n";
    QTest::newRow("show without a file") << QStringList{"show"} << "kormak show: no FILE given\n";
    QTest::newRow("format without a file")
        << QStringList{"format", "--in-place"} << "kormak format: no FILE given\n";
    QTest::newRow("diff without files") << QStringList{"diff"} << "kormak diff: no FILE given\n";
    QTest::newRow("diff of one file")
        << QStringList{"diff", "job.xml"} << "kormak diff: takes two FILEs, not 1\n";
    QTest::newRow("diff of three files")
        << QStringList{"diff", "job.xml", "job.xml", "job.xml"} << "kormak diff: takes two FILEs, not 3\n";
    QTest::newRow("diff of standard input with itself")
        << QStringList{"diff", "-", "-"} << "kormak diff: only one of the files can be standard input\n";
    QTest::newRow("new without a kind") << QStringList{"new"} << "kormak new: no KIND given\n";
    QTest::newRow("new of two kinds")
        << QStringList{"new", "Job", "Job"} << "kormak new: takes one KIND, not 2\n";
    QTest::newRow("new to two files") << QStringList{"new", "Job", "-o", "a.xml", "-o", "b.xml"}
                                      << "kormak new: -o can be given only once\n";
    QTest::newRow("new with fields to list and to set")
        << QStringList{"new", "Job", "--list-fields", "--set", "a=b"}
        << "kormak new: --list-fields takes only --format\n";
    QTest::newRow("list of two vocabularies")
        << QStringList{"list", "JobType", "ValueType"} << "kormak list: takes one VOCABULARY, not 2\n";
    QTest::newRow("help of an unknown command")
        << QStringList{"help", "chek"}
        << "kormak help: Unknown command 'chek'; did you mean \"check\"? Allowed: " + Commands + "\n";
    QTest::newRow("help of a command in capitals")
        << QStringList{"help", "Check"}
        << "kormak help: Unknown command 'Check'; did you mean \"check\"? Allowed: " + Commands + "\n";
    QTest::newRow("help of an empty name")
        << QStringList{"help", ""} << "kormak help: Unknown command ''. Allowed: " + Commands + "\n";
    QTest::newRow("help with an unknown option")
        << QStringList{"help", "-V"} << "kormak help: Unknown option 'V'. Allowed: -h, --help\n";
    QTest::newRow("help of two commands")
        << QStringList{"help", "check", "show"} << "kormak help: takes one COMMAND, not 2\n";
    QTest::newRow("command that could steer a terminal")
        << QStringList{"a\x1B[2J\nb"}
        << "kormak: Unknown command 'a\\u001b[2J\\nb'. Allowed: " + Commands + "\n";
    QTest::newRow("field that could steer a terminal")
        << QStringList{"new", "Job", "--set", "\x1B[2J=1"}
        << "kormak new: there is no field '\\u001b'. Allowed: JobHeader, ResourceType, AntennaData\n";
    QTest::newRow("show of two files")
        << QStringList{"show", "job.xml", "job.xml"} << "kormak show: takes one FILE, not 2\n";
    QTest::newRow("format of three files")
        << QStringList{"format", "job.xml", "a", "b"}
        << "kormak format: takes one FILE, not 3, unless with --in-place or --check\n";
    QTest::newRow("format of two files to one")
        << QStringList{"format", "job.xml", "job.xml", "-o", "out.xml"}
        << "kormak format: takes one FILE, not 2, unless with --in-place or --check\n";
    QTest::newRow("format of two files in place and to one")
        << QStringList{"format", "job.xml", "job.xml", "-o", "out.xml", "--in-place"}
        << "kormak format: only one of -o, --in-place and --check can be given, and -o only once\n";
    QTest::newRow("format of files and standard input in place")
        << QStringList{"format", "--in-place", "job.xml", "-"}
        << "kormak format: standard input cannot be written in place\n";
    QTest::newRow("check with no thread")
        << QStringList{"check", "-j", "0", "job.xml"} << "kormak check: -j takes a number from 1, not '0'\n";
    QTest::newRow("check with threads in words") << QStringList{"check", "--jobs", "two", "job.xml"}
                                                 << "kormak check: -j takes a number from 1, not 'two'\n";
    QTest::newRow("check with fewer than no threads") << QStringList{"check", "--jobs=-1", "job.xml"}
                                                      << "kormak check: -j takes a number from 1, not '-1'\n";
    QTest::newRow("check in another format")
        << QStringList{"check", "--format", "xml", "job.xml"}
        << "kormak check: Unknown format 'xml'. Allowed: text, json, sarif, github\n";
    QTest::newRow("check without a format")
        << QStringList{"check", "job.xml", "--format"}
        << "kormak check: Missing value after '--format'. Allowed: -r, "
           "--recursive, -j, --jobs N, --strict, -q, --quiet, --severity ID=SEVERITY, --baseline FILE, "
           "--write-baseline FILE, --format FORMAT, --limit-attributes N, "
           "--limit-depth N, --limit-entities N, -h, --help\n";
    QTest::newRow("check of standard input twice") << QStringList{"check", "-", "job.xml", "-"}
                                                   << "kormak check: standard input can be read only once\n";
    QTest::newRow("format to a file and in place")
        << QStringList{"format", "job.xml", "--in-place", "-o", "out.xml"}
        << "kormak format: only one of -o, --in-place and --check can be given, and -o only once\n";
    QTest::newRow("format to two files")
        << QStringList{"format", "job.xml", "-o", "a.xml", "-o", "b.xml"}
        << "kormak format: only one of -o, --in-place and --check can be given, and -o only once\n";
    QTest::newRow("format in place and to check")
        << QStringList{"format", "--check", "--in-place", "job.xml"}
        << "kormak format: only one of -o, --in-place and --check can be given, and -o only once\n";
    QTest::newRow("format of standard input twice")
        << QStringList{"format", "--check", "-", "-"}
        << "kormak format: standard input can be read only once\n";
    QTest::newRow("format of standard input in place")
        << QStringList{"format", "-", "--in-place"}
        << "kormak format: standard input cannot be written in place\n";
}

void CommandLineTest::wrongCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaint);

    Folder folder;
    folder.write("job.xml", completeJob());
    const Run result = folder.run(arguments);
    QCOMPARE(result.err, complaint);
    QCOMPARE(result.out, QString());
    QCOMPARE(result.status, 2);
    QCOMPARE(folder.names(), QStringList{"job.xml"});
}

void CommandLineTest::filesTakenForOptions_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("check") << QStringList{"check", "-dash.xml", "job.xml"}
                           << "kormak check: the file '-dash.xml' is taken for options. Put -- in front of "
                              "it, as in: kormak check -- -dash.xml\n";
    QTest::newRow("behind another file") << QStringList{"diff", "job.xml", "--dash.xml"}
                                         << "kormak diff: the file '--dash.xml' is taken for options. Put -- "
                                            "in front of it, as in: kormak diff -- --dash.xml\n";
    QTest::newRow("no such file") << QStringList{"list", "-none"}
                                  << "kormak list: Unknown options: n, o, n, e. Allowed: --format FORMAT, "
                                     "-h, --help\n";
    QTest::newRow("file behind --") << QStringList{"list", "--none", "--", "-dash.xml"}
                                    << "kormak list: Unknown option 'none'. Allowed: --format FORMAT, -h, "
                                       "--help\n";
}

void CommandLineTest::filesTakenForOptions()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaint);

    Folder folder;
    for (const QString name : {"-dash.xml", "--dash.xml", "job.xml"})
        folder.write(name, completeJob());
    const Run result = folder.run(arguments);
    QCOMPARE(result.err, complaint);
    QCOMPARE(result.out, QString());
    QCOMPARE(result.status, 2);
}

void CommandLineTest::anyLocale_data()
{
    QTest::addColumn<QString>("locale");

    QTest::newRow("C") << "C";
    QTest::newRow("UTF-8") << "C.UTF-8";
    QTest::newRow("German") << "de_DE.UTF-8";
    QTest::newRow("German in Latin-1") << "de_DE.ISO-8859-1";
    QTest::newRow("unknown") << "xx_YY";
}

void CommandLineTest::anyLocale()
{
    QFETCH(QString, locale);

    Folder folder;
    folder.environment.insert("LC_ALL", locale);
    folder.environment.insert("LANGUAGE", "de");
    folder.write("job.xml", jobWith("Mara Lind", "M\xC3\xA4r\xC3\xA4"));
    const Run format = folder.run({"format", "job.xml"});
    QCOMPARE(format.out, folder.read("job.xml"));
    QCOMPARE(format.err, QString());
    const Run missing = folder.run({"check", "none.xml"});
    QCOMPARE(missing.err, QString("none.xml: error: cannot be read: No such file or directory\n"));
}

void CommandLineTest::fullOutput()
{
    if (!QFile::exists("/dev/full")) {
        skip("there is no device that is always full");
        return;
    }
    Folder folder;
    folder.write("job.xml", completeJob());
    const Run result = folder.run({"show", "job.xml"}, {}, "/dev/full");
    const QString complaint = "kormak: standard output: No space left on device\n";
    QCOMPARE(result.err, complaint);
    QCOMPARE(result.status, 2);

    // A warning in between does not hide it.
    const Run made =
        folder.run({"new", "Parameter", "--set", "ParameterType=Boolean", "--set", "UniqueName=a", "--set",
                    "ValueType=ValueBoolean", "--set", "RepresentationName=a"},
                   {}, "/dev/full");
    QVERIFY2(made.err.startsWith("kormak new: warning: "), qPrintable(made.err));
    QVERIFY2(made.err.endsWith(complaint), qPrintable(made.err));
    QCOMPARE(made.status, 2);
}

void CommandLineTest::closedOutput_data()
{
    QTest::addColumn<QString>("arguments");

    QTest::newRow("help") << "--help";
    QTest::newRow("version") << "--version";
    QTest::newRow("help of a command") << "help check";
    QTest::newRow("check") << "check job.xml";
    QTest::newRow("check as JSON, many files") << "check -j 4 --format json *.xml";
    QTest::newRow("show") << "show job.xml";
    QTest::newRow("show as JSON") << "show --format json job.xml";
    QTest::newRow("table") << "table job.xml";
    QTest::newRow("table as CSV, several files") << "table -j 4 --format csv job.xml other.xml";
    QTest::newRow("diff") << "diff job.xml other.xml";
    QTest::newRow("diff as JSON") << "diff --format json job.xml other.xml";
    QTest::newRow("format") << "format job.xml";
    QTest::newRow("new") << "new ActivityGeneration --set Mode=AGSC";
    QTest::newRow("fields of new") << "new Job --list-fields";
    QTest::newRow("list") << "list";
    QTest::newRow("list as JSON") << "list --format json JobType";
    QTest::newRow("names") << "list JobType";
}

void CommandLineTest::closedOutput()
{
    QFETCH(QString, arguments);
    const QString shell = "/bin/sh";
    if (!QFile::exists(shell)) {
        skip("there is no shell");
        return;
    }

    // Both with what fits into the buffer of the tool and with more than it holds.
    for (const int size : {10, 1024 * 1024}) {
        for (const auto &[signal, status] : {std::pair("", "141"), std::pair("trap '' PIPE; ", "2")}) {
            Folder folder;
            folder.write("job.xml", jobWith("Mara Lind", QByteArray(size, 'x')));
            folder.write("other.xml", jobWith("Mara Lind", QByteArray(size, 'y')));
            for (int i = 0; i < 20; ++i)
                folder.write(QString("%1.xml").arg(i),
                             "<Job>" + QByteArray("<Foo/>").repeated(100) + "</Job>");
            // The one reader of the pipe is gone before the tool starts.
            const QString call = QString("mkfifo pipe; exec 4<>pipe 5>pipe 4<&-; %1'" KORMAK_TOOL
                                         "' %2 >&5 2>err; echo $? >status")
                                     .arg(signal, arguments);
            QProcess process;
            process.setWorkingDirectory(folder.path("."));
            process.start(shell, {"-c", call});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.readAllStandardError(), QByteArray());
            QCOMPARE(folder.read("err"), QString());
            QCOMPARE(folder.read("status").trimmed(), QString(status));
        }
    }
}

void CommandLineTest::closedStreams_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");
    QTest::addColumn<int>("status");

    const QString closed = "-: error: cannot be read: standard input is closed\n";
    QTest::newRow("check") << "check - <&-"
                           << "" << closed << 2;
    QTest::newRow("check, behind files")
        << "check -j 1 job.xml faulty.xml - <&-"
        << "job.xml: Job, complete\n3 files: 1 good, 1 at fault, 1 unreadable\n"
        << "faulty.xml:3:5: error: Job/JobHeader/Author: missing\n" + closed << 2;
    QTest::newRow("check of files only") << "check job.xml <&-"
                                         << "job.xml: Job, complete\n"
                                         << "" << 0;
    // Nor is what main() opens in its place taken for standard input.
    QTest::newRow("check, by the name of the device") << "check /dev/null <&-"
                                                      << ""
                                                      << "/dev/null: error: cannot be read: it is a device\n"
                                                      << 2;
    QTest::newRow("show") << "show - <&-"
                          << "" << closed << 2;
    QTest::newRow("diff") << "diff job.xml - <&-"
                          << "" << closed << 2;
    QTest::newRow("format") << "format - <&-"
                            << "" << closed << 2;
    QTest::newRow("all streams, in a file") << "format - -o new.xml <&- >&- 2>&-"
                                            << ""
                                            << "" << 2;
    QTest::newRow("output") << "check job.xml >&-"
                            << ""
                            << "kormak: standard output is closed\n"
                            << 2;
    QTest::newRow("output, help") << "help check >&-"
                                  << ""
                                  << "kormak: standard output is closed\n"
                                  << 2;
    QTest::newRow("output, version") << "-V >&-"
                                     << ""
                                     << "kormak: standard output is closed\n"
                                     << 2;
    QTest::newRow("output, wrong call")
        << "help chek >&-"
        << ""
        << "kormak help: Unknown command 'chek'; did you mean \"check\"? Allowed: " + Commands + "\n"
        << 2;
    QTest::newRow("error output") << "check faulty.xml 2>&-"
                                  << ""
                                  << "" << 1;
    QTest::newRow("error output, wrong call") << "chek faulty.xml 2>&-"
                                              << ""
                                              << "" << 2;
    QTest::newRow("output and input") << "diff job.xml - <&- >&-"
                                      << "" << closed << 2;
    QTest::newRow("output, to a file") << "format untidy.xml -o untidy.xml >&-"
                                       << ""
                                       << "" << 0;
    QTest::newRow("output, in place") << "format --in-place untidy.xml >&-"
                                      << ""
                                      << "kormak: standard output is closed\n"
                                      << 2;
    QTest::newRow("error output, in place") << "format --in-place faulty.xml untidy.xml 2>&-"
                                            << "untidy.xml\n"
                                            << "" << 1;
}

/// No file takes the place of a stream that is closed.
void CommandLineTest::closedStreams()
{
    QFETCH(QString, call);
    QFETCH(QString, out);
    QFETCH(QString, err);
    QFETCH(int, status);
    if (!QFile::exists("/bin/sh")) {
        skip("there is no shell");
        return;
    }

    const Folder folder;
    folder.write("job.xml", completeJob());
    folder.write("faulty.xml", jobWithoutAuthor());
    folder.write("untidy.xml", completeJob().replace("    ", "\t"));
    QProcess process;
    process.setWorkingDirectory(folder.path("."));
    process.start("/bin/sh", {"-c", "exec '" KORMAK_TOOL "' " + call});
    const Run run = ended(process);
    QCOMPARE(run.out, out);
    QCOMPARE(run.err, err);
    QCOMPARE(run.status, status);
    QCOMPARE(folder.names(), (QStringList{"faulty.xml", "job.xml", "untidy.xml"}));
    QCOMPARE(folder.read("faulty.xml"), QString(jobWithoutAuthor()));
    if (call.contains("untidy.xml"))
        QCOMPARE(folder.read("untidy.xml"), QString(completeJob()));
}

void CommandLineTest::colours_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaints"); // %1 is "error", %2 "warning", %3 "loss"

    QTest::newRow("check") << QStringList{"check", "bad.xml"}
                           << "bad.xml:3:5: %1: Job/JobHeader/Author: missing\n"
                              "bad.xml:10:9: %2: Job/AntennaData/Name/@a: unknown attribute, which is passed "
                              "over\n";
    QTest::newRow("check of no file")
        << QStringList{"check", "none"} << "none: %1: cannot be read: No such file or directory\n";
    QTest::newRow("show") << QStringList{"show", "none"}
                          << "none: %1: cannot be read: No such file or directory\n";
    QTest::newRow("table") << QStringList{"table", "bad.xml"}
                           << "bad.xml:3:5: %1: Job/JobHeader/Author: missing\n";
    QTest::newRow("diff") << QStringList{"diff", "job.xml", "none"}
                          << "none: %1: cannot be read: No such file or directory\n";
    QTest::newRow("diff of two kinds")
        << QStringList{"diff", "job.xml", "parameter.xml"}
        << "parameter.xml: %1: is of kind Parameter, but job.xml is of kind Job: they cannot be compared\n";
    QTest::newRow("format") << QStringList{"format", "bad.xml"}
                            << "bad.xml:3:5: %1: JobHeader: Please set Author\n";
    QTest::newRow("format with losses")
        << QStringList{"format", "loss.xml"}
        << "loss.xml:1:1: %3: the comment \"a\" would be missing\n"
           "loss.xml: %1: not written, since the lines above would be lost (--drop-comments allows "
           "to lose comments)\n";
    QTest::newRow("new") << QStringList{"new", "Parameter"}
                         << "kormak new: %1: UniqueName: missing\n"
                            "kormak new: %1: ParameterType: missing\n"
                            "kormak new: %1: ValueType: missing\n"
                            "kormak new: %1: RepresentationName: missing\n"
                            "kormak new: %1: nothing is written, since the document is not complete\n";
    QTest::newRow("new with a warning")
        << QStringList{"new",   "Parameter",
                       "--set", "UniqueName=a",
                       "--set", "RepresentationName=rx",
                       "--set", "ValueType=ValueNumericInt",
                       "--set", "ParameterType=Long",
                       "--set", "Long.Minimum=1"}
        << "kormak new: %2: Long.Default: the default 0 is below the minimum 1\n";
    QTest::newRow("list") << QStringList{"list", "none"} << QString();
}

void CommandLineTest::colours()
{
#ifdef Q_OS_UNIX
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaints);

    Screen screen;
    if (!screen.isThere()) {
        skip("there are no terminals");
        return;
    }
    Folder folder;
    folder.write("job.xml", completeJob());
    folder.write("parameter.xml", completeParameter());
    folder.write("bad.xml", jobWithoutAuthor().replace("<Name>", "<Name a='b'>"));
    folder.write("loss.xml", "<!--a-->" + completeJob().mid(completeJob().indexOf("<Job")));
    const QString coloured = QString(complaints)
                                 .replace("%1", "\x1b[1;31merror\x1b[0m")
                                 .replace("%2", "\x1b[1;35mwarning\x1b[0m")
                                 .replace("%3", "\x1b[1;31mloss\x1b[0m");
    const QString plain =
        QString(complaints).replace("%1", "error").replace("%2", "warning").replace("%3", "loss");
    const struct {
        const char *terminal;
        const char *noColour; // null: not set
        bool isColoured;
    } environments[] = {
        {"xterm", nullptr, true},
        {"xterm", "", true},
        {"xterm", "1", false},
        {"dumb", nullptr, false},
    };
    QString shown;
    for (const auto &[terminal, noColour, isColoured] : environments) {
        folder.environment.insert("TERM", terminal);
        folder.environment.remove("NO_COLOR");
        if (noColour)
            folder.environment.insert("NO_COLOR", noColour);
        const Run run = folder.run(arguments, {}, {}, screen.path());
        QVERIFY(!run.out.contains('\x1b'));
        QString text = screen.text().mid(shown.size());
        shown = screen.text();
        text.remove('\r');
        if (!complaints.isEmpty())
            QCOMPARE(text, isColoured ? coloured : plain);
        else
            QVERIFY(!text.isEmpty() && !text.contains('\x1b'));
    }
    folder.environment.insert("TERM", "xterm");
    folder.environment.remove("NO_COLOR");
    const Run piped = folder.run(arguments);
    QVERIFY(!piped.err.contains('\x1b'));
    if (!complaints.isEmpty())
        QCOMPARE(piped.err, plain);
    const Run toTerminal = folder.run(arguments, {}, screen.path());
    QVERIFY(!screen.text().mid(shown.size()).contains('\x1b'));
    QCOMPARE(toTerminal.err, piped.err);
#else
    skip("no terminals here");
#endif
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
