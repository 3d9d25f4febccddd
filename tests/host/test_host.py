"""The commands of vintrel-host: what they write, how they fail, and links between a simulated exchange and a host.

usage: test_host.py VINTREL_HOST VINTREL_DLL SAMPLES_FOLDER WORK_FOLDER [PART_OF_A_TEST_NAME]
Needs wine in the path and its prefix in WINEPREFIX.
"""
import concurrent.futures
import csv
import glob
import io
import json
import os
import pty
import re
import select
import shutil
import signal
import socket
import subprocess
import sys
import time
import tty

HOST, SERVER, SAMPLES, FOLDER = (os.path.abspath(path) for path in sys.argv[1:5])
ALL_MODELS = [f"TYPE{number}" for number in range(10001, 10021)] + ["TYPE12000"]
LIMIT = 60


def host(*words, given=None, **options):
    done = subprocess.run(["wine", HOST, *words], input=given, capture_output=True, timeout=LIMIT, **options)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


def start(*words, output, **options):
    return subprocess.Popen(["wine", HOST, *words], stdout=open(output, "wb"), stderr=subprocess.STDOUT, **options)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def expect(got, wanted, what=""):
    if got != wanted:
        raise AssertionError(f"{what}\n      got    {got!r}\n      wanted {wanted!r}")


def expect_in(part, text):
    if part not in text:
        raise AssertionError(f"{part!r} is not in\n{text}")


def rows(text):
    return list(csv.DictReader(io.StringIO(text)))


def folder(name):
    path = os.path.join(FOLDER, name)
    shutil.rmtree(path, ignore_errors=True)
    os.makedirs(path)
    return path


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return str(probe.getsockname()[1])


def registered(command):
    expect(subprocess.run(["wine", "regsvr32", "/s", *command, SERVER], timeout=LIMIT).returncode, 0, "regsvr32")


# --- Single commands --------------------------------------------------------------------------------------------------

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
    with open(os.path.join(work, "day.txt"), "w", encoding="ascii") as file:
        file.write("# a day\nroom 201 dusty\n")
    capture = os.path.join(SAMPLES, "mitel_pc4.txt")
    listen = ["listen", "--model", "TYPE10004"]
    for words, wanted, message in [
        (["converted"], 2, 'no command "converted"'),
        (["convert", capture], 2, "--model is missing"),
        (["convert", "--model", "TYPE10021", capture], 2, 'no model "TYPE10021"'),
        (["convert", "--model", "TYPE10004"], 2, "the capture"),
        (["convert", "--model", "TYPE10004", "--format", "xml", capture], 2, "--format is"),
        (["convert", "--model", "TYPE10004", "missing.txt"], 1, "missing.txt cannot be opened"),
        (listen, 2, "give one of"),
        ([*listen, "--connect", "nowhere"], 2, "HOST:PORT"),
        ([*listen, "--listen", "65536"], 2, "1 to 65535"),
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
    with open(capture, "rb") as file:
        lines = file.read().split(b"\r\n")[:-1]
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


# --- Live links -------------------------------------------------------------------------------------------------------

DAY = ["wakeup 201 answered", "wakeup 202 not answered", "call 203 out", "wakeup-set 203 set", "room 201 clean",
       "room 202 not clean", "call 201 out", "alarm 202 room alarm", "call 203 out", "wakeup-set 203 cleared"]
TRANSFER = "call in 201 0327771100 60\ncall out 201 0041448001122 61 4\ncall out 201 0041448001122 61 4\n"
ORDERS = "checkin 203 Rossi  # with a name\nwakeup 203 0730\ncheckout 203\n"
HOTEL = ["--user", "hotel", "--password", "secret", "--once"]

LINKS = {  # what both sides are told; the events of the host, in this order; what the exchange saw; calls and rooms
    "a serial-style exchange over TCP": dict(
        model="TYPE10001", listening=["--orders", "orders.txt", "--once"], events=["login confirmed", *DAY],
        seen=["<- <STX><ETX>", "-> <ACK>", "order <STX>070020307301<ETX>"], counts=(6, 2)),
    "the PMS link": dict(
        model="TYPE12000", listening=["--silent", "1", "--once"],
        events=[*DAY[:2], "check-in 203 Rossi", *DAY[2:], "check-out 203", "lost closed by the peer"],
        seen=["<- <STX>LS|DA", "<STX>PA|RN201|ASOK|"], counts=(3, 2)),
    # The pair is the server's memory of some seconds, so the replay takes it from the log.
    "two legs of a transferred call are told as one": dict(
        model="TYPE10004", simulated=["--scenario", "transfer.txt"],
        events=["call 201 in", "call 201 out", "transfer 201 two legs of one call", "call 201 out"], counts=(3, 0)),
    "an exchange with prompts that connects to the host": dict(
        model="TYPE10016", connect=False, listening=HOTEL,
        events=["login answered", DAY[0], *DAY[4:6], *DAY[7:8]], seen=["<- hotel<CR>"], counts=(6, 2)),
    "an exchange with prompts": dict(
        model="TYPE10019", listening=["--user", "SMDR", *HOTEL[2:]],
        events=["login answered", DAY[0], DAY[2], DAY[4]], seen=["-> ******<CR><LF>"], counts=(6, 2)),
    # No fault costs a complete record.
    "half a frame": dict(
        model="TYPE10001", simulated=["--fault", "half"], events=["half frame <STX>00001002010041448001122"],
        counts=(6, 2)),
    "garbage": dict(model="TYPE10001", simulated=["--fault", "garbage"], counts=(6, 2)),
    "half a line": dict(model="TYPE10004", simulated=["--fault", "half"], counts=(6, 0)),
    "a disconnection": dict(
        model="TYPE12000", simulated=["--fault", "disconnect"], listening=["--for", "12"],
        events=["lost closed by the peer"], counts=(3, 2)),
    "a silence": dict(
        model="TYPE12000", simulated=["--fault", "silence"], listening=["--silent", "3", "--once"],
        events=["silent nothing for 3 seconds", "heard again"], counts=(3, 2)),
}


def link(name, model, simulated=(), listening=("--once",), connect=True, events=(), seen=(), counts=(0, 0)):
    """A day between a simulated exchange and a host, and the host's replay of its log."""
    def test():
        work, port = folder(name.replace(" ", "_")), free_port()
        os.makedirs(os.path.join(work, "log"))
        for file_name, text in (("orders.txt", ORDERS), ("transfer.txt", TRANSFER)):
            with open(os.path.join(work, file_name), "w", encoding="ascii") as file:
                file.write(text)
        sides = (["--listen", port], ["--connect", f"127.0.0.1:{port}"])
        told = os.path.join(work, "exchange.txt")
        exchange = start("simulate", "--model", model, *sides[0 if connect else 1], "--pace", "20", *simulated,
                         output=told, cwd=work)
        try:
            code, out, errors = host("listen", "--model", model, *sides[1 if connect else 0], "--format", "csv",
                                     "--retry", "1", "--log", "log", *listening, cwd=work)
            expect((code, errors), (0, ""))
        finally:
            exchange.wait(timeout=LIMIT)
        log, = glob.glob(os.path.join(work, "log", "link-*.log"))
        expect(host("listen", "--model", model, "--replay", log, "--format", "csv"), (0, out, ""), "the replay differs")
        kinds = [row["Event"] for row in rows(out)]
        expect((kinds.count("call"), kinds.count("room")), counts, "calls and room states")
        expect(kinds.count("malformed"), 0)
        expect(kinds.count("heard again") <= kinds.count("silent"), True, "heard again, though never silent")
        shown = iter([" ".join(word for word in (row["Event"], row["Room"], row["Detail"].split(" 07")[0]) if word)
                      for row in rows(out)])
        expect([wanted for wanted in events if wanted not in shown], [], "events that did not come in this order")
        text = read(told)
        expect([part for part in seen if part not in text], [], text)
        expect("not acknowledged" in text, False, text)
    test.__name__ = name
    return test


def ctrl_c_ends_a_link_cleanly():
    work, port = folder("ctrl_c"), free_port()
    events = os.path.join(work, "events.txt")
    process = start("listen", "--model", "TYPE12000", "--connect", f"127.0.0.1:{port}", output=events)
    end = time.time() + 10
    while "refused" not in read(events) and time.time() < end:
        time.sleep(0.1)
    process.send_signal(signal.SIGINT)
    expect(process.wait(timeout=10), 1, "it was never connected")
    expect_in(" ended", read(events))


def a_serial_line_works_like_the_network():
    """The port is a pseudo-terminal of this system; the settings of the line are the usual ones."""
    work, (exchange, line) = folder("serial"), pty.openpty()
    tty.setraw(line)
    device = os.path.join(os.environ["WINEPREFIX"], "dosdevices", "com9")
    if os.path.islink(device):
        os.unlink(device)
    os.symlink(os.ttyname(line), device)
    try:
        process = start("listen", "--model", "TYPE10001", "--serial", "COM9", "--for", "5",
                        output=os.path.join(work, "events.txt"))
        expect(heard(exchange), b"\2\3", "the host asks for the login")
        os.write(exchange, b"\6\x02080020100111\3")
        expect(heard(exchange), b"\6", "the host acknowledges the frame")
        expect(process.wait(timeout=LIMIT), 0)
    finally:
        os.unlink(device)
    expect_in("room          201    clean", read(os.path.join(work, "events.txt")))


def heard(terminal):
    ready, _, _ = select.select([terminal], [], [], 10)
    return os.read(terminal, 100) if ready else None


def a_flood_without_end_stays_bounded():
    """A peer that sends noise for ever neither fills the memory nor keeps the link from its next record."""
    work = folder("flood")
    with socket.create_server(("127.0.0.1", 0)) as server:
        process = start("listen", "--model", "TYPE10004", "--connect", f"127.0.0.1:{server.getsockname()[1]}", "--for",
                        "6", output=os.path.join(work, "events.txt"))
        peer, _ = server.accept()
        with peer:
            for _ in range(400):
                peer.sendall(b"x" * 65536)
            with open(os.path.join(SAMPLES, "mitel_pc4.txt"), "rb") as file:
                peer.sendall(b"\r\n" + file.read())
            expect(process.wait(timeout=LIMIT), 0)
    text = read(os.path.join(work, "events.txt"))
    expect(text.count(" call "), 13)
    expect_in("no end", text)
    expect(len(text) < 100_000, True, "every piece of the noise was told")


TESTS = [models_lists_the_catalogue_in_every_format, every_command_explains_itself, wrong_command_lines_are_refused,
         convert_cuts_the_same_calls_in_every_format, convert_tells_calls_from_what_is_none,
         classify_names_every_frame, simulated_days_convert_to_the_calls_of_the_day,
         *[link(name, **how) for name, how in LINKS.items()],
         ctrl_c_ends_a_link_cleanly, a_serial_line_works_like_the_network, a_flood_without_end_stays_bounded]


def run(test):
    begin = time.time()
    try:
        test()
        print(f"ok      {test.__name__} ({time.time() - begin:.1f} s)", flush=True)
        return True
    except Exception as error:  # whatever it is, the other tests go on
        print(f"FAILED  {test.__name__}: {type(error).__name__}: {error}", flush=True)
        return False


def main():
    os.makedirs(FOLDER, exist_ok=True)
    part = sys.argv[5] if len(sys.argv) > 5 else ""
    good = part != "" or run(says_that_the_server_is_not_registered)
    registered([])
    try:
        wanted = [test for test in TESTS if part in test.__name__]
        with concurrent.futures.ThreadPoolExecutor(max_workers=3) as pool:
            results = list(pool.map(run, wanted))
    finally:
        registered(["/u"])
    sys.exit(0 if good and results and all(results) else 1)


if __name__ == "__main__":
    main()
