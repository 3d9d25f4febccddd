"""The commands of vintrel-host: what they write, and how they fail. See tools.py for the command line."""
import concurrent.futures
import json
import os
import re
import subprocess

from tools import HOST, LIMIT, SAMPLES, SERVER, expect, expect_in, folder, host, rows, run_all, sample, write

ALL_MODELS = [f"TYPE{number}" for number in range(10001, 10021)] + ["TYPE12000"]


def says_that_the_server_is_not_registered():
    subprocess.run(["wine", "regsvr32", "/s", "/u", SERVER], timeout=LIMIT)  # by whoever ran before
    code, _, errors = host("models")
    expect(code, 3)
    expect_in("the server is not registered", errors)


def models_lists_the_catalogue_in_every_format():
    models = [json.loads(line) for line in host("models", "--format", "json")[1].splitlines()]
    expect([model["code"] for model in models], ALL_MODELS)
    expect(models[-1]["model"], "FIAS - PMS")
    expect([row["Code"] for row in rows(host("models", "--format=csv")[1])], ALL_MODELS)
    expect_in("\nTYPE10017  Avaya - IP Office\n", host("models")[1])


def every_command_explains_itself():
    for line in host("--help")[1].split("commands:\n")[1].split("\n\n")[0].splitlines():
        command = line.split()[0]
        code, out, _ = host(command, "--help")
        expect((code, f"usage: vintrel-host {command} " in out), (0, True), out)
    expect(len(set(re.findall(r"[0-9.]+", host("--version")[1]))), 1)  # the program and the server


def wrong_command_lines_are_refused():
    work = folder("refused")
    write(os.path.join(work, "day.txt"), "# a day\nroom 201 dusty\n")
    capture = os.path.join(SAMPLES, "mitel_pc4.txt")
    listen = ["listen", "--model", "TYPE10004"]
    for words, wanted, message in [
        (["converted"], 2, 'no command "converted"'),
        (["convert", capture], 2, "--model is missing"),
        (["convert", "--model", "TYPE10021", capture], 2, 'no model "TYPE10021"'),
        (["convert", "--model", "TYPE10004"], 2, "the capture"),
        (["convert", "--model", "TYPE10004", "--format", "xml", capture], 2, "--format is"),
        (["convert", "--model", "TYPE10004", "missing.txt"], 1, "missing.txt cannot be opened"),
        (["convert", "--model", "TYPE10004", "--separator", ";", capture], 2, "--separator belongs to"),
        (["convert", "--model", "TYPE10004", "--format", "csv", "--separator", "a", capture], 2, "--separator is"),
        (listen, 2, "give one of"),
        ([*listen, "--connect", "nowhere"], 2, "HOST:PORT"),
        ([*listen, "--connect", "nowhere:65536"], 2, "1 to 65535"),
        ([*listen, "--listen", "65536"], 2, "1 to 65535"),
        ([*listen, "--listen", "1", "--from", "nowhere"], 2, "--from takes an address"),
        ([*listen, "--connect", "nowhere:1", "--any"], 2, "--any belongs to --listen"),
        ([*listen, "--serial", "COM1", "--line", "fast"], 2, "BAUD,BITS"),
        (["simulate", "--model", "TYPE10004", "--print", "--fault", "fire"], 2, "--fault is"),
        (["simulate", "--model", "TYPE10004", "--print", "--scenario", "day.txt"], 2, 'day.txt:2: "dusty" is none of'),
        ([*listen, "--listen", "1", "--orders", "day.txt"], 2, 'day.txt:2: there is no order "room"'),
        (["checkin", "--model", "TYPE10004", "--room", "204", "Rossi"], 2, '"Rossi" belongs to no option'),
        (["wakeup", "--model", "TYPE10004", "--room", "204", "--time", "7:30"], 2, "a time is HHMM"),
        (["wakeup", "--model", "TYPE10004", "--room", "0", "--time", "0730"], 2, "a room is a number from 1"),
        (["checkout", "--model", "TYPE10004", "--room", "204", "--settings", "missing"], 1, "no folder missing"),
    ]:
        code, _, errors = host(*words, cwd=work)
        expect(code, wanted, words)
        expect_in(message, errors)


def convert_cuts_the_same_calls_in_every_format():
    capture = os.path.join(SAMPLES, "mitel_pc4.txt")
    lines = sample("mitel_pc4.txt").split(b"\r\n")[:-1]
    code, out, errors = host("convert", "--model", "type10004", "--format", "csv", capture)
    expect(code, 0)
    calls = rows(out)
    # The Mitel line carries number, room and line as they stand: cut them here once more.
    expect([(c["Number"], c["User"], c["Line"]) for c in calls],
           [tuple(line[a:a + n].decode().strip() for a, n in ((66, 16), (1, 5), (42, 5))) for line in lines])
    expect_in(f"{len(lines)} records: {len(lines)} calls", errors)
    piped = host("convert", "--model", "TYPE10004", "--format", "json", "-", given=b"\r\n".join(lines) + b"\r\n")[1]
    expect([list(json.loads(line).values()) for line in piped.splitlines()], [list(c.values()) for c in calls])
    table = host("convert", "--model", "TYPE10004", capture)[1].splitlines()
    expect(len(table), len(lines) + 2)
    start_of_number = table[0].index("Number")
    expect([line[start_of_number:start_of_number + 16].strip() for line in table[2:]], [c["Number"] for c in calls])


def convert_tells_calls_from_what_is_none():
    capture = (b"\2LS|DA240304|TI080000|\3y\2PS|RN102|PTT|MP12|DA240304|TI080215|P#1|DD0041448001122|DU95|\3"
               b"noise\2PS|half\2LR|RIPS|FLRN|\3\2RE|RN201|RS3|\3\2PS|RN1|DA|TI|DU100000|\3\2PS|RN9")
    code, out, errors = host("convert", "--model", "TYPE12000", "--format", "csv", "--verbose", "-", given=capture)
    expect(code, 1)
    expect([row["User"] for row in rows(out)], ["00102"])
    expect_in("5 records: 1 calls (1 out), 0 rejected, 1 malformed, 3 not call records, 2 incomplete", errors)
    expect_in("malformed: <STX>PS|RN1|DA|TI|DU100000|<ETX>", errors)
    expect_in("half a frame at the end: <STX>PS|RN9", errors)
    code, _, errors = host("convert", "--model", "TYPE10004", "-", given=b"no end at all")
    expect(code, 1)
    expect_in("one ends with <CR><LF>", errors)


def simulated_days_convert_to_the_calls_of_the_day():
    """Every model's own form, written by the simulated exchange, gives the same calls back."""
    def day(model):
        capture = subprocess.run(["wine", HOST, "simulate", "--model", model, "--print"], capture_output=True,
                                 timeout=LIMIT).stdout
        code, out, errors = host("convert", "--model", model, "--format", "csv", "-", given=capture)
        expect(code, 0, model + errors)
        return [(row["User"].lstrip("0"), row["Number"], int(row["Duration"])) for row in rows(out)]
    outgoing = [("203", "0041448001122", 192), ("201", "0043123456789", 644), ("203", "0049301234567", 31)]
    whole = [("202", "0327771100", 65), outgoing[0], ("203", "0327771101", 0), outgoing[1], ("201", "0327771102", 250),
             outgoing[2]]
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        for model, calls in zip(ALL_MODELS, pool.map(day, ALL_MODELS)):
            expect(calls, outgoing if model == "TYPE12000" else whole, model)


def classify_names_every_frame():
    code, out, _ = host("classify", "--model", "type10016", "--format", "csv", os.path.join(SAMPLES, "mitel_hotel.txt"))
    expect(code, 0)
    expect([(row["Kind"] + " " + row["Form"].replace(" " * 14, "~")).strip() for row in rows(out)], [
        "login", "room state <STX>080020400111<ETX>", "room state <STX>080020500221<ETX>",
        "room alarm <STX>080011700331<ETX>", "wake-up confirmation <STX>07002041<ETX>", "other",
        "room state <STX>080031200111<ETX>",
        "call record <STX>00001  3010041448001122   00000010012001921511260800~~     <ETX>", "other", "login",
        "room state <STX>080011800221<ETX>"])
    kinds = [row["Kind"] for row in rows(host("classify", "--model", "TYPE12000", "--format", "csv",
                                              os.path.join(SAMPLES, "fias_session.txt"))[1])]
    expect([(kind, kinds.count(kind)) for kind in sorted({*kinds} - {"other"})], [
        ("call record", 1), ("login", 1), ("room alarm", 1), ("room state", 4), ("set-clock", 5),
        ("wake-up confirmation", 3)])


def values_separator_and_width_are_as_wished():
    capture = os.path.join(SAMPLES, "mitel_pc4.txt")
    convert = ["convert", "--model", "TYPE10004", "--values", "plain"]
    first = host(*convert, "--format", "csv", "--separator", ";", capture)[1].splitlines()[1]
    expect(first, "2024-03-04;08:02;out;1;301;1;0041448001122;192;12;0000;0;;")
    first = json.loads(host(*convert, "--format", "json", capture)[1].splitlines()[0])
    expect((first["date"], first["duration"], first["unity"], first["number"]),
           ("2024-03-04", 192, 12, "0041448001122"))
    _, out, errors = host(*convert, "--width", "80", capture)
    expect(max(len(line) for line in out.splitlines()) <= 80, True, out)
    expect(all(word in out for word in ("2024-03-04", "0041448001122", "192")), True, out)
    expect_in("The table leaves out ", errors)


def captures_are_read_in_every_form():
    """The same calls, whatever an editor, a shell or the log has made of the bytes; and which it was is said."""
    capture, calls = sample("mitel_pc4.txt"), host("convert", "--model", "TYPE10004", "--format", "csv",
                                                   os.path.join(SAMPLES, "mitel_pc4.txt"))[1]
    text, lines = capture.decode("latin-1"), capture.splitlines(keepends=True)
    log = b"".join(b"2026-11-15 06:00:00.%03d <- %s\n" % (i, line.replace(b"\t", b"<TAB>").replace(b"\r\n", b"<CR><LF>"))
                   for i, line in enumerate(lines))
    for form, data in {
            "plain bytes": capture, "UTF-8 text": b"\xef\xbb\xbf" + capture, "UTF-16 text": text.encode("utf-16"),
            "lines that end with <LF>": capture.replace(b"\r\n", b"\n"),
            "lines that end with <CR>": capture.replace(b"\r\n", b"\r"),
            "control characters by name": capture.replace(b"\r\n", b"<CR><LF>\n"), "the log of a link": log}.items():
        code, out, errors = host("convert", "--model", "TYPE10004", "--format", "csv", "-", given=data)
        expect((code, out), (0, calls), form)
        expect_in(f"Read as {form}.", errors)
        code, out, _ = host("listen", "--model", "TYPE10004", "--format", "csv", "--replay", "-", given=data)
        expect((code, [row["Number"] for row in rows(out)]), (0, [row["Number"] for row in rows(calls)]), form)
    half = log[:90] + b"\n2026-11-15 06:00:00.100 -- lost||gone\n" + log[log.index(b"\n") + 1:]
    code, _, errors = host("convert", "--model", "TYPE10004", "-", given=half)
    expect((code, "12 calls" in errors, "1 incomplete" in errors), (1, True, True), "half a record, and a lost link")


def what_can_be_no_call_is_not_shown_as_one():
    call = sample("mitel_pc4.txt")[:142]
    tails = b"".join(call[cut:] for cut in range(1, 136))
    code, out, errors = host("convert", "--model", "TYPE10004", "--format", "csv", "--verbose", "-", given=tails)
    expect((code, rows(out)), (1, []))
    expect_in("(the date is none)", errors)
    expect_in("135 records: 0 calls", errors)
    code, out, _ = host("classify", "--model", "TYPE10004", "--format", "csv", "-", given=call[7:])
    expect((code, [row["Kind"] for row in rows(out)]), (1, ["malformed"]))


def detect_finds_the_model_and_the_others_say_when_it_is_the_wrong_one():
    for name, code in {
            "alcatel_oxo": "TYPE10009", "algoral": "TYPE10010", "avaya_integral": "TYPE10001",
            "avaya_integral2": "TYPE10003", "fias_posting": "TYPE12000", "fias_session": "TYPE12000",
            "grandstream": "TYPE10020", "innovaphone": "TYPE10012", "ip_office": "TYPE10017",
            "mitel_hotel": "TYPE10008", "mitel_pc4": "TYPE10004", "panasonic": "TYPE10019",
            "wildix": "TYPE10013"}.items():
        done, out, _ = host("detect", "--format", "csv", os.path.join(SAMPLES, name + ".txt"))
        expect((done, rows(out)[0]["Code"]), (0, code), name)
    for command in (["convert"], ["classify"]):
        for model, capture in (("TYPE10017", "mitel_pc4.txt"), ("TYPE12000", "mitel_pc4.txt"), ("TYPE10003", "mitel_pc4.txt")):
            code, _, errors = host(*command, "--model", model, os.path.join(SAMPLES, capture))
            expect(code, 1, (command, model))
            expect_in("It reads as TYPE10004 (", errors)
    for words in (["convert", "--model", "TYPE10004"], ["classify", "--model", "TYPE10004"], ["detect"]):
        code, _, errors = host(*words, "-", given=b"")
        expect((code, "the capture is empty" in errors.lower()), (1, True), words)
    expect(host("detect", "-", given=b"nothing that any exchange says\r\n" * 9)[0], 1)


TESTS = [captures_are_read_in_every_form, detect_finds_the_model_and_the_others_say_when_it_is_the_wrong_one,
         values_separator_and_width_are_as_wished, what_can_be_no_call_is_not_shown_as_one, models_lists_the_catalogue_in_every_format, every_command_explains_itself, wrong_command_lines_are_refused,
         convert_cuts_the_same_calls_in_every_format, convert_tells_calls_from_what_is_none,
         classify_names_every_frame, simulated_days_convert_to_the_calls_of_the_day]

if __name__ == "__main__":
    run_all(TESTS, says_that_the_server_is_not_registered)
