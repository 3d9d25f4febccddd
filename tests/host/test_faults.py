"""What goes wrong on a link at night, and what vintrel-host makes of it. See tools.py for the command line."""
import glob
import os
import pty
import resource
import select
import signal
import socket
import subprocess
import termios
import time
import tty

from tools import FOLDER, HOST, LIMIT, expect, expect_in, folder, free_port, host, read, rows, run_all, sample, start, write

CALL = sample("mitel_pc4.txt")[:142]


def clean(room):
    return b"\x0208%05d00111\3" % room


class Peer:
    """The exchange's end of a link that vintrel-host runs."""

    def __init__(self, name, *words, model="TYPE10001", dials=False, most=None, **options):
        self.work = folder(name)
        self.output = os.path.join(self.work, "events.csv")
        self.port = int(free_port())
        if not dials:
            server = socket.create_server(("127.0.0.1", self.port))
            server.settimeout(LIMIT)
        with open(self.output, "wb") as output, open(os.path.join(self.work, "errors.txt"), "wb") as errors:
            self.process = subprocess.Popen(
                ["wine", HOST, "listen", "--model", model, *(["--listen", str(self.port)] if dials else
                 ["--connect", f"127.0.0.1:{self.port}"]), "--format", "csv", *words],
                cwd=self.work, stdout=options.pop("stdout", output), stderr=errors,
                preexec_fn=(lambda: self.limit(most)) if most else None)
        self.link = self.dial() if dials else server.accept()[0]

    @staticmethod
    def limit(most):
        """Files of the process end at this size, as on a full disk."""
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (most, resource.RLIM_INFINITY))

    def make_room(self):
        resource.prlimit(self.process.pid, resource.RLIMIT_FSIZE, (resource.RLIM_INFINITY, resource.RLIM_INFINITY))

    def dial(self, source="127.0.0.1"):
        end = time.time() + 10
        while True:
            try:
                return socket.create_connection(("127.0.0.1", self.port), source_address=(source, 0))
            except ConnectionRefusedError:
                if time.time() > end:
                    raise
                time.sleep(0.05)

    def says(self, data):
        self.link.sendall(data)

    def hears(self, patience=20):
        """What the host sends; b"" when it has sent nothing for so many seconds, or has gone."""
        self.link.settimeout(patience)
        try:
            return self.link.recv(100)
        except TimeoutError:
            return b""

    def awaits(self, text, times=1):
        end = time.time() + LIMIT
        while read(self.output).count(text) < times:
            expect(time.time() < end, True, f"no {text!r} in {read(self.output)}")
            time.sleep(0.05)

    def ends(self, code=0, by=signal.SIGINT):
        """@return its events, each as one line of words."""
        if by:
            self.process.send_signal(by)
        expect(self.process.wait(timeout=LIMIT), code, read(self.output))
        return [" ".join(row[key] for key in ("Event", "Room", "Detail") if row[key]) for row in rows(read(self.output))]

    def log(self):
        path, = glob.glob(os.path.join(self.work, "link-*.log"))
        return path


# --- What is received is kept -----------------------------------------------------------------------------------------

def a_record_is_acknowledged_when_it_is_written():
    peer = Peer("full_output", most=1200)
    peer.says(b"\6")
    expect(peer.hears(), b"\2\3")
    room = 200
    peer.says(clean(room))
    while peer.hears(patience=3) == b"\6":
        room += 1
        peer.says(clean(room))
    written = [row["Room"] for row in rows(read(peer.output)) if row["Detail"] == "clean"]
    expect(written, [str(number) for number in range(200, room)], "what was acknowledged")
    peer.make_room()
    peer.says(clean(room))  # the exchange repeats what nobody has acknowledged
    expect(peer.hears(), b"\6")
    events = peer.ends()
    expect([event for event in events if " clean" in event], [f"room {number} clean" for number in range(200, room + 1)])
    expect("output again 0 lines are lost" in events, True, events)


def a_closed_output_does_not_end_the_link():
    reader, writer = os.pipe()
    peer = Peer("closed_output", "--log", ".", stdout=writer)
    os.close(writer)
    expect(peer.hears(), b"\2\3")
    os.close(reader)
    for number in (201, 202):
        peer.says(clean(number))
        expect(peer.hears(), b"\6", "the log has it")
    peer.ends(code=1)
    code, out, _ = host("listen", "--model", "TYPE10001", "--replay", peer.log(), "--format", "csv")
    expect((code, [row["Room"] for row in rows(out) if row["Event"] == "room"]), (0, ["201", "202"]))


def a_gap_in_the_log_is_marked_and_no_line_is_cut():
    peer = Peer("full_log", "--log", ".", most=1500, stdout=subprocess.DEVNULL)
    peer.says(b"\6")
    expect(peer.hears(), b"\2\3")
    for number in range(201, 231):
        peer.says(clean(number))
        expect(peer.hears(), b"\6")
    before = read(peer.log())
    expect((before[-1], before.count("<STX>08") < 30), ("\n", True), "the log is not full")
    peer.make_room()
    peer.says(clean(299))
    expect(peer.hears(), b"\6")
    peer.ends(code=1)
    lines = read(peer.log())[len(before):].splitlines()
    missing = 60 - before.count("<STX>08") - before.count("-> <ACK>") + 0
    expect_in(f"log gap||{missing} lines are missing since 20", lines[0])
    expect_in("writing works again", lines[0])
    expect_in(" <- " + "<STX>080029900111<ETX>", lines[1])
    # Model and link stand in the name and in the first line.
    expect_in(f"link-TYPE10001-127.0.0.1_{peer.port}-20", peer.log())
    expect_in(f" == TYPE10001 Avaya - Integral 1/3/5 SW xE3.xxx - xE5.xxx, 127.0.0.1:{peer.port}\n", before)


def a_second_connection_does_not_get_the_link():
    peer = Peer("knock", dials=True)
    expect(peer.hears(), b"\2\3")
    probe = peer.dial()
    time.sleep(0.5)
    probe.close()
    for number in (201, 202):
        peer.says(clean(number))
        expect(peer.hears(), b"\6")
    second = peer.dial("127.0.0.7")
    second.sendall(b"\6" + clean(203))
    peer.awaits("waits; the link stays with 127.0.0.1:", times=2)
    peer.link.close()  # the old connection is dead now: whoever waits is next
    peer.link = second
    expect(peer.hears(), b"\2\3")
    events = peer.ends()
    expect_in(f"listening on 127.0.0.1:{peer.port}", events[0])
    expect([event for event in events if event.startswith(("room", "lost"))],
           ["room 201 clean", "room 202 clean", "lost closed by the peer", "room 203 clean"])

    peer = Peer("from", "--from", "127.0.0.9", dials=True)
    expect(peer.hears(), b"", "another machine is let in")
    peer.link = peer.dial("127.0.0.9")
    expect(peer.hears(), b"\2\3")
    expect_in("is not 127.0.0.9", peer.ends()[1])


# --- What is shown is true --------------------------------------------------------------------------------------------

def half_of_a_record_is_no_call():
    peer = Peer("second_half", "--status", "1", model="TYPE10004")
    peer.says(CALL[:60])
    peer.awaits("half frame")
    peer.says(CALL[60:])
    peer.says(CALL)
    peer.awaits("call,301")
    events = peer.ends()
    expect([event.split()[0] for event in events if event.split()[0] in ("malformed", "call")], ["malformed", "call"])
    expect(events[-1], "ended 284 bytes in, 4 out; 2 frames: 1 calls, 0 events, 0 rejected, 1 malformed, 0 unknown; "
                       "1 incomplete")
    expect(any(event.startswith("status 60 bytes in") for event in events), True, events)


def the_wrong_model_is_told():
    for model, capture, right in (("TYPE10001", "mitel_pc4.txt", "TYPE10004"), ("TYPE10017", "panasonic.txt", "TYPE10019"),
                                  ("TYPE10004", "fias_session.txt", "TYPE12000")):
        peer = Peer("wrong_model_" + model, model=model)
        peer.says(sample(capture))
        peer.awaits("wrong model")
        expect_in(f"wrong model It reads as {right} (", "\n".join(peer.ends()))


def silence_and_missing_answers_are_told():
    code, out, _ = host("listen", "--model", "TYPE10004", "--connect", f"127.0.0.1:{free_port()}", "--silent", "1",
                        "--for", "2", "--format", "csv")
    expect((code, [row["Detail"] for row in rows(out) if row["Event"] == "silent"]),
           (1, ["nothing for 1 seconds, and no connection"]), "never connected")
    peer = Peer("unanswered", model="TYPE12000")
    peer.awaits("unanswered,,the link start had no answer for 10 seconds")
    peer.says(b"\2LA|\3")
    peer.awaits("answered,,the other side is there")
    peer.ends()
    peer = Peer("no_login")
    peer.awaits("no login,,the exchange neither asked nor answered")
    peer.ends()


def the_fate_of_every_order_is_told():
    peer = Peer("orders", "--orders", write(os.path.join(folder("order_file"), "orders.txt"),
                                            "\ufeffcheckin 203 Rossi\r\nwakeup 204 0730 2412\rname 205 Anna\ncheckout 206\n"))
    peer.says(b"\6")
    heard = b""
    while b"\2" + b"040020311\3" not in heard:
        heard += peer.hears()
    peer.says(b"\6")
    peer.awaits("order,205")
    events = [event for event in peer.ends(code=1) if any(room in event for room in ("203", "204", "205", "206"))]
    expect(events, ["order 203 checkin Rossi", "confirmed 203 checkin Rossi", "order 204 wakeup 0730 2412",
                    "no answer 204 wakeup 0730 2412: <STX>070020407301<ETX>", "order 205 name Anna",
                    *[event for event in events if event.endswith("205 name Anna")][1:], "not sent 206 checkout"])


def a_password_is_shown_nowhere():
    peer = Peer("password", "--user", "hotel", "--password", "sesame", "--log", ".", "--show", model="TYPE10014")
    for prompt in (b"\xff\xfb\x03", b"Username: ", b"hotel\r\nPassword: "):
        peer.says(prompt)
        answer = peer.hears()
    expect(answer, b"sesame\r")
    for echo in (b"ses", b"ame\r\n", CALL):
        peer.says(echo)
        time.sleep(0.2)
    peer.awaits("call,301")
    events = peer.ends()
    for wanted in ("-> <password><CR>", "<- <password><CR><LF>", "call 301 out"):
        expect(wanted in events, True, events)
    expect("sesame" in read(peer.output) + read(peer.log()), False, read(peer.log()))
    replayed = host("listen", "--model", "TYPE10014", "--replay", peer.log(), "--show", "--format", "csv")
    expect(replayed, (0, read(peer.output), ""), "the replay differs")


# --- How a link ends, and serial lines --------------------------------------------------------------------------------

def ctrl_c_ends_a_link_cleanly():
    peer = Peer("ctrl_c", model="TYPE12000")
    expect(peer.hears()[:3], b"\2LS")
    peer.process.send_signal(signal.SIGINT)
    expect(peer.hears()[:3], b"\2LE")
    expect_in("ended", peer.ends(by=None)[-1])


def a_closed_console_and_the_end_of_the_session_end_a_link_cleanly():
    for name, command in (("console", [os.path.join(os.path.dirname(FOLDER), "close_console.exe")]),
                          ("close", ["taskkill", "/im", "vintrel-host.exe"]), ("session", ["wineboot", "--end-session"])):
        peer = Peer("end_by_" + name, model="TYPE12000")
        expect(peer.hears()[:3], b"\2LS")
        subprocess.run(["wine", *command], stdout=subprocess.DEVNULL, timeout=LIMIT)
        expect(peer.hears()[:3], b"\2LE", name)
        expect_in("ended", peer.ends(by=None)[-1])


def a_serial_line_works_like_the_network():
    """The port is a pseudo-terminal of this system."""
    work, (exchange, line) = folder("serial"), pty.openpty()
    tty.setraw(line)
    device = os.path.join(os.environ["WINEPREFIX"], "dosdevices", "com9")
    if os.path.islink(device):
        os.unlink(device)
    os.symlink(os.ttyname(line), device)
    try:
        process = start("listen", "--model", "TYPE10001", "--serial", "COM9", "--line", "19200,7,E,2", "--handshake",
                        "software", "--for", "5", output=os.path.join(work, "events.txt"))
        expect(heard(exchange), b"\2\3", "the host asks for the login")
        flow, _, control, _, _, speed, _ = termios.tcgetattr(line)
        expect((flow & (termios.IXON | termios.IXOFF), control & termios.CSTOPB, speed),
               (termios.IXON | termios.IXOFF, termios.CSTOPB, termios.B19200), "settings of the line")
        os.write(exchange, b"\6\x02080020100111\3")
        expect(heard(exchange), b"\6", "the host acknowledges the frame")
        expect(process.wait(timeout=LIMIT), 0)
        code, out, _ = host("listen", "--model", "TYPE10001", "--serial", "COM77", "--for", "1")
        expect((code, "COM77: there is no such port, but " in out, "COM9" in out), (1, True, True), out)
    finally:
        os.unlink(device)
    expect_in("room          201    clean", read(os.path.join(work, "events.txt")))


def heard(terminal):
    ready, _, _ = select.select([terminal], [], [], 10)
    return os.read(terminal, 100) if ready else None


def an_address_in_brackets_is_reached():
    with socket.create_server(("::1", 0), family=socket.AF_INET6) as server:
        port = server.getsockname()[1]
        process = start("listen", "--model", "TYPE10001", "--connect", f"[::1]:{port}", "--once",
                        output=os.path.join(folder("brackets"), "events.txt"))
        server.settimeout(LIMIT)
        server.accept()[0].close()
        expect(process.wait(timeout=LIMIT), 0)


def a_flood_without_end_stays_bounded():
    """A peer that sends noise for ever neither fills the memory nor keeps the link from its next record."""
    peer = Peer("flood", model="TYPE10004")
    for _ in range(400):
        peer.says(b"x" * 65536)
    peer.says(b"\r\n" + sample("mitel_pc4.txt"))
    peer.awaits("call,311")
    events = peer.ends()
    expect(len([event for event in events if event.startswith("call")]), 13)
    expect_in("no end", "".join(events))
    expect(len("".join(events)) < 100_000, True, "every piece of the noise was told")


TESTS = [silence_and_missing_answers_are_told, the_fate_of_every_order_is_told,
         a_record_is_acknowledged_when_it_is_written, a_closed_output_does_not_end_the_link,
         a_gap_in_the_log_is_marked_and_no_line_is_cut, a_second_connection_does_not_get_the_link,
         half_of_a_record_is_no_call, the_wrong_model_is_told, a_password_is_shown_nowhere, ctrl_c_ends_a_link_cleanly,
         a_serial_line_works_like_the_network, an_address_in_brackets_is_reached, a_flood_without_end_stays_bounded]

if __name__ == "__main__":
    run_all(TESTS, alone=[a_closed_console_and_the_end_of_the_session_end_a_link_cleanly])
