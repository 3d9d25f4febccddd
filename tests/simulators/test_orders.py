"""Orders of the four driven exchanges through the server's COM classes, against exchanges that work and that fail.

usage: test_orders.py ORDER_CLIENT VINTREL_DLL VINTREL_HOST WORK_FOLDER [PART_OF_A_SCENARIO_NAME]
WORK_FOLDER is emptied first. Needs wine in the path and its prefix in WINEPREFIX. Scenarios run side by side, each with a host process of its own;
the time from an order to its verdict is measured in that process.
"""
import base64
import concurrent.futures
import hashlib
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import threading

from exchanges import PASSWORD, USER, Grandstream, HttpExchange, Innovaphone, IpOffice, make_certificate

CLIENT, SERVER, PROGRAM, FOLDER = (os.path.abspath(path) for path in sys.argv[1:5])
TOKEN = hashlib.md5((USER + PASSWORD).encode()).hexdigest().upper()
TYPES = {Innovaphone: "TYPE10012", Grandstream: "TYPE10020", IpOffice: "TYPE10017"}
NAMES = {Innovaphone: "innovaphone", Grandstream: "Grandstream", IpOffice: "IP Office"}
PANASONIC = "TYPE10019"
measured, measuring = [], threading.Lock()


def expect(got, wanted, what):
    if got != wanted:
        raise AssertionError(f"{what}\n      got    {got!r}\n      wanted {wanted!r}")


def windows(path):
    return "Z:" + path.replace("/", "\\")


def settings_folder(port, host="127.0.0.1", unit="127.0.0.1"):
    """A new folder with both configuration files."""
    folder = tempfile.mkdtemp(dir=FOLDER)
    with open(os.path.join(folder, "Quindara.cfg"), "wb") as file:
        texts = {156: host, 158: USER, 159: PASSWORD}
        for record in range(1, 161):
            text = texts.get(record, "").encode("cp1252")
            content = struct.pack("<i", port) if record == 157 else struct.pack("<H", len(text)) + text
            file.write(content.ljust(624, b"\0"))
    with open(os.path.join(folder, "Vintrel.ini"), "w", encoding="ascii") as file:
        file.write(f"[IP_OFFICE]\nhost={unit}\nport={port}\n[USERS]\n204=0a1b2c3d\n"
                   "[WAKEUP_RESPONSE]\nFallback=0123\n")
    return folder


class Host:
    """A host process with a documents folder of its own."""

    def __init__(self, kind, port=0, environment=(), **addresses):
        self.type, self.folder = kind, settings_folder(port, **addresses)
        settings = dict(os.environ, **dict(environment))
        self.errors = open(os.path.join(self.folder, "errors"), "wb+")
        self.process = subprocess.Popen(["wine", CLIENT, windows(SERVER)], env=settings, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=self.errors)
        self.said = b""
        self.do("documents", windows(self.folder))
        self.initialize()

    def initialize(self):
        expect(self.do("initialize", self.type)[0], "done", "initialisation")

    def send(self, *words):
        self.process.stdin.write("\t".join(str(word) for word in words).encode() + b"\n")
        self.process.stdin.flush()

    def do(self, *words):
        """The answer and its milliseconds."""
        self.send(*words)
        line = self.process.stdout.readline()
        self.said += line
        *answer, milliseconds = line.decode().rstrip("\r\n").split("\t")
        return "\t".join(answer), int(milliseconds)

    def order(self, what, room, *words):
        return self.do(what, self.type, room, *words)

    def check_out(self):
        return self.order("checkout", 204, 0)

    def end(self):
        """The host lets go of the server, which has nothing left to do, and has told nobody a secret."""
        rest, _ = self.process.communicate(timeout=20)
        expect(rest.strip(), b"unload: yes", "DllCanUnloadNow after the last order")
        expect(self.process.returncode, 0, "end of the host process")
        self.errors.seek(0)
        said = self.said + self.errors.read()
        for sample in (b"narrow output is seen", b"wide output is seen"):
            expect(sample in said, True, "debugger output that is looked through")
        for secret in (PASSWORD, TOKEN, base64.b64encode(f"{USER}:{PASSWORD}".encode()).decode()):
            expect(secret.encode() in said, False, "a secret in the output of the process")


def expect_fault(host, kind, fault, most):
    """The order fails within the limit. What it took goes into the report."""
    answer, milliseconds = host.check_out()
    with measuring:
        measured.append((kind, fault, milliseconds))
    expect(answer, "<ERROR>", f"verdict of {kind}: {fault}")
    if milliseconds > most:
        raise AssertionError(f"{kind}: {fault} took {milliseconds} ms, limit {most}")


# --- orders of an exchange -------------------------------------------------------------------------------------------

def innovaphone_carries_out_orders():
    exchange = Innovaphone()
    host = Host("TYPE10012", exchange.port)
    page = "/PBX0/ADMIN/mod_cmd_login.xml?cmd=submit-"
    orders = [
        (("wakeup", 204, "0730", "1511", 2, 2), page + "wakeup&cn=204&name=wakeup-moh-en&num=&h=07&m=30&s=00&retry=2"
         "&mult=on&to=300&fallback=123&wakeup=&guid=*"),
        (("checkin", 204, 'Renè "R" Rossi', 1, 1), page + "object&cfnr=15&busy-out=1&cn=204"
         "&dn=Ren%C3%A8%20%22R%22%20Rossi&filter=checkin&guid=*"),
    ]
    for order, _ in orders:
        expect(host.order(*order)[0], "<OK>", order)
    expect(exchange.orders(), [target for _, target in orders], "request targets")
    first = exchange.received[0].decode()
    expect(first.startswith("GET /PBX0/"), True, "method of " + first)
    expect("Authorization" in first, False, "credentials before they were asked for")
    host.end()


def grandstream_carries_out_orders():
    exchange = Grandstream(FOLDER)
    host = Host("TYPE10020", exchange.port)
    room = "%3Caddress%3E204%3C/address%3E%3Croom%3E204%3C/room%3E"
    orders = [
        (("wakeup", 204, "0730", "3112", 0, 0), f"%3Cwakeup%3E{room}%3Cw_action%3E1%3C/w_action%3E%3Cw_mode%3E1"
         "%3C/w_mode%3E%3Cw_time%3E0730%3C/w_time%3E%3Cw_date%3E"),
        (("checkin", 204, "Renè & Co", 4, 0),
         f"%3Ccheckin%3E{room}%3Caccount%3E204%3C/account%3E%3Clanguage%3EES_ES%3C/language%3E"
         "%3Cfirstname%3ERen%C3%A8%20&%20Co%3C/firstname%3E%3Clastname%3E%3C/lastname%3E%3Cdatein%3E"),
    ]
    for order, _ in orders:
        expect(host.order(*order)[0], "<OK>", order)
    targets = exchange.orders()
    expect(len(targets), len(orders), "number of requests")
    for target, (order, document) in zip(targets, orders):
        start = f"/pmsapi?token={TOKEN}&format=xml&data=%3Cpms_data_request%3E{document}"
        expect(target[:len(start)], start, order)
        expect(target.endswith("%3C/pms_data_request%3E"), True, "end of " + target)
    for request in exchange.received:
        expect(request.startswith(b"POST "), True, "method of " + request.decode())
        expect([line for line in request.split(b"\r\n") if line.lower().startswith((b"format", b"content-length"))],
               [b"format: xml", b"Content-Length: 0"], "headers")
    host.end()


def grandstream_certificate_may_be_expired_and_for_another_name():
    exchange = Grandstream(FOLDER, expired=True)
    host = Host("TYPE10020", exchange.port)
    expect(host.check_out()[0], "<OK>", "expired certificate")
    host.end()


def ip_office_carries_out_all_orders():
    exchange = IpOffice()
    host = Host("TYPE10017", exchange.port, host="unit.example", unit="localhost")
    rights = "&lt;UserRights&gt;{}&lt;/UserRights&gt;"
    name = "&lt;FullName&gt;{}&lt;/FullName&gt;"
    orders = [
        (("checkin", 204, "Renè <R> & 𝄞", 1, 1), rights.format("CheckIn") + name.format("Ren&#232; &lt;R&gt; & &#119070;")),
        (("checkin", 204, "Rossi", 1, 0), rights.format("CheckIn")),
        (("checkout", 204, 1), rights.format("CheckOut") + name.format("")),
        (("checkout", 204, 0), rights.format("CheckOut")),
        (("name", 204, "Rossi"), name.format("Rossi")),
    ]
    for order, _ in orders:
        expect(host.order(*order)[0], "<OK>", order)
    expect(host.order("wakeup", 204, "0730", "1511", 0, 0)[0], "", "a wake-up call is no order here")
    declaration = '<?xml version="1.0" encoding="utf-8"?>'
    expect(len(exchange.received), len(orders), "number of requests")
    for request, (order, elements) in zip(exchange.received, orders):
        header, _, body = request.decode("ascii").partition("\r\n\r\n")
        space = body.partition('<SetUnitConfiguration xmlns="')[2].partition('"')[0]
        expect(body, declaration + '<soap:Envelope xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/" '
               'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xsd="http://www.w3.org/2001/XMLSchema">'
               f'<soap:Body><SetUnitConfiguration xmlns="{space}"><unitIPAddress>unit.example</unitIPAddress>'
               f'<portNumber>{exchange.port}</portNumber><accountName>{USER}</accountName>'
               f'<accountPassword>{PASSWORD}</accountPassword><configurationData>'
               + declaration.replace("<", "&lt;").replace(">", "&gt;") +
               '&lt;AvayaIPOConfiguration Version="1.0"&gt;&lt;Users&gt;&lt;User Guid="0a1b2c3d" Opp="Update"&gt;'
               f'{elements}&lt;/User&gt;&lt;/Users&gt;&lt;/AvayaIPOConfiguration&gt;</configurationData>'
               '<batchTransaction>true</batchTransaction></SetUnitConfiguration></soap:Body></soap:Envelope>', order)
        expect(header.split("\r\n"), [
            "POST /IPOConfigurationService HTTP/1.1",
            "User-Agent: Mozilla/4.0 (compatible; MSIE 6.0; MS Web Services Client Protocol 4.0.30319.42000)",
            "Content-Type: text/xml; charset=utf-8", f'SOAPAction: "{space}/IPOConfigService/SetUnitConfiguration"',
            f"Host: localhost:{exchange.port}", f"Content-Length: {len(body)}", "Expect: 100-continue"], order)
    host.end()


# --- faults of the network --------------------------------------------------------------------------------------------

def make_exchange(kind, fault=""):
    return kind(FOLDER, fault) if kind is Grandstream else kind(fault)


def long_fault(kind, fault, most):
    def scenario():
        exchange = make_exchange(kind, fault)
        host = Host(TYPES[kind], exchange.port)
        expect_fault(host, NAMES[kind], fault, most)
        exchange.recover()
        expect(host.check_out()[0], "<OK>", f"the order after {fault}")
        host.end()
        exchange.close()
    scenario.__name__ = f"{NAMES[kind]} {fault}"
    return scenario


def quick_faults(kind, faults):
    def scenario():
        elsewhere = make_exchange(kind)
        exchange = make_exchange(kind, "refused")
        exchange.elsewhere = f"{'https' if kind is Grandstream else 'http'}://127.0.0.1:{elsewhere.port}/"
        host = Host(TYPES[kind], exchange.port)
        expect_fault(host, NAMES[kind], "refused", 4000)
        exchange.recover()
        expect(host.check_out()[0], "<OK>", "the order after refused")
        memory = int(host.do("memory")[0])
        for fault in faults:
            exchange.fault = fault
            expect_fault(host, NAMES[kind], fault, 5000)
            exchange.fault = ""
            expect(host.check_out()[0], "<OK>", f"the order after {fault}")
        grown = int(host.do("memory")[0]) - memory
        if grown > 16 * 1024:
            raise AssertionError(f"{NAMES[kind]}: the faults made the process grow by {grown} KiB")
        expect(elsewhere.received, [], "what a redirect brought to another server")
        host.end()
    scenario.__name__ = f"{NAMES[kind]} quick faults"
    return scenario


def another_order_meanwhile(kind):
    def scenario():
        exchange = make_exchange(kind, "late")
        host = Host(TYPES[kind], exchange.port)
        host.send("during", 700, "checkin", TYPES[kind], 9, "Bianchi", 0, 1)
        answer, milliseconds = host.order("checkout", 204, 1)
        expect(answer, "during: <ERROR>\t<OK>", "both verdicts")
        if milliseconds < 1900:
            raise AssertionError(f"the order was answered before the exchange did: {milliseconds} ms")
        received = exchange.orders() if isinstance(exchange, HttpExchange) else exchange.received
        expect(len(received), 1, "number of orders that reached the exchange")
        exchange.fault = ""
        expect(host.check_out()[0], "<OK>", "the next order")
        host.end()
    scenario.__name__ = f"{NAMES[kind]} another order meanwhile"
    return scenario


def ip_office_of_an_unknown_name():
    host = Host("TYPE10017", 8085, unit="no-such-unit.invalid")
    expect_fault(host, "IP Office", "unknown name", 11000)
    host.end()


def wrong_credentials():
    exchange = Innovaphone()
    exchange.AUTHORIZATION = "Basic of somebody else"
    host = Host("TYPE10012", exchange.port)
    expect_fault(host, "innovaphone", "wrong credentials", 3000)
    expect(len(exchange.received), 2, "requests: one without, one with the credentials")
    host.end()


# --- Panasonic --------------------------------------------------------------------------------------------------------

class Telephony:
    """The files by which the stand-in service is told how to behave, and tells what it was called for."""

    def __init__(self):
        folder = tempfile.mkdtemp(dir=FOLDER)
        self.log, self.behaviour = os.path.join(folder, "log"), os.path.join(folder, "behaviour")
        self.behave()

    def behave(self, **how):
        how.setdefault("lines", "EXT00101,-EXT00204,ext00204 ,EXT12345")
        with open(self.behaviour, "w", encoding="ascii") as file:
            file.writelines(f"{key}={value}\n" for key, value in how.items())

    def host(self):
        return Host(PANASONIC, environment={
            "WINEDLLOVERRIDES": "tapi32=n;mscoree,mshtml=",
            "VINTREL_TAPI_LOG": windows(self.log),
            "VINTREL_TAPI_BEHAVIOUR": windows(self.behaviour)})

    def calls(self):
        """Since the last time."""
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding="ascii") as file:
            calls = file.read().splitlines()
        os.remove(self.log)
        return calls

    def requests(self):
        """Command, time, repeat flag, both name lengths and the name of each request since the last time."""
        blocks = [bytes.fromhex(call.partition("block=")[2]) for call in self.calls() if "block=" in call]
        for block in blocks:
            expect((len(block), block[0:12], block[20:24]), (61, b"=" + bytes(11), bytes(4)), "fixed part of the block")
        return [struct.unpack("<II", block[12:20]) + struct.unpack("<III", block[24:36]) +
                (block[36:].rstrip(b"\0").decode("cp1252"),) for block in blocks]


def panasonic_carries_out_orders():
    telephony = Telephony()
    host = telephony.host()
    expect(telephony.calls(), ["lineInitializeExA module=1 name=Vintrel version=30000 size=24 options=0"], "start-up")
    at = 7 * 2048 + 30 * 32
    orders = [
        (("wakeup", 204, "0730", "1511", 2, 0), [(6, at, 1, 0, 0, "")]),
        (("checkin", 204, " Renè ", 1, 0), [(63, at, 1, 0, 0, ""), (13, at, 1, 5, 56, "Renè")]),
    ]
    for order, requests in orders:
        expect(host.order(*order)[0], "<OK>", order)
        expect(telephony.requests(), requests, order)
    host.check_out()
    expect([call.partition(" block=")[0] for call in telephony.calls()], [
        "lineNegotiateAPIVersion application=a0 device=0 low=10003 high=30000",
        "lineGetDevCapsA application=a0 device=0 version=20000 extension=0 size=2301",
        "lineNegotiateAPIVersion application=a0 device=1 low=10003 high=30000",
        "lineGetDevCapsA application=a0 device=1 version=20001 extension=0 size=2301",
        "lineNegotiateAPIVersion application=a0 device=2 low=10003 high=30000",
        "lineGetDevCapsA application=a0 device=2 version=20002 extension=0 size=2301",
        "lineNegotiateAPIVersion application=a0 device=2 low=10003 high=30000",
        "lineOpen application=a0 device=2 version=20002 extension=0 instance=544e4956 privileges=6 media=4 parameters=0",
        "lineDevSpecific line=b2 address=544e4956 call=0 size=61",
        "lineClose line=b2"], "calls of one order")
    expect(host.do("uninitialize", PANASONIC)[0], "done", "the end")
    expect(telephony.calls(), ["lineShutdown application=a0 open=0"], "shut-down")
    host.end()


def panasonic_faults():
    telephony = Telephony()
    telephony.behave(initialize="fail")
    host = telephony.host()
    telephony.calls()
    expect_fault(host, "Panasonic", "start-up failed", 1000)
    expect(telephony.calls(), [], "calls without a start-up")
    telephony.behave()
    host.initialize()
    expect(host.check_out()[0], "<OK>", "the order after the start-up")
    faults = {
        "no such line": {"lines": "EXT00101,EXT002040"},
        "negotiation failed": {"negotiate": "fail", "lines": "EXT00204"},
        "capabilities failed": {"capabilities": "fail", "lines": "EXT00204"},
        "open failed": {"open": "fail"},
        "request failed": {"request": "fail"},
        "no reply": {"reply": "none"},
        "reply for another request": {"reply": "other"},
        "reply too late": {"reply": "late"},
    }
    for fault, behaviour in faults.items():
        telephony.behave(**behaviour)
        expect_fault(host, "Panasonic", fault, 4000)
        telephony.behave()
        expect(host.check_out()[0], "<OK>", f"the order after {fault}")
    telephony.behave(reply="early")
    expect(host.check_out()[0], "<OK>", "a reply before the request has returned")
    telephony.behave(reply="none")
    host.send("during", 700, "checkout", PANASONIC, 101, 0)
    expect(host.check_out()[0], "during: <ERROR>\t<ERROR>", "an order during another")
    opened = [call for call in telephony.calls() if call.startswith("lineOpen")]
    expect([call for call in opened if "device=0" in call], [], "lines that the order in between opened")
    # A reply that comes after the shut-down finds nobody.
    telephony.behave(reply="late")
    host.check_out()
    host.do("uninitialize", PANASONIC)
    expect(host.check_out()[0], "<ERROR>", "an order without the service")
    host.end()


# --- the reference host -----------------------------------------------------------------------------------------------

def the_host_program_shows_commands_and_verdicts():
    exchange = Innovaphone()
    settings = ("--settings", windows(settings_folder(exchange.port)))
    order = ("checkout", "--model", "TYPE10012", "--room", "204", *settings)

    def run(*words):
        done = subprocess.run(["wine", PROGRAM, *words], capture_output=True, timeout=60, check=False)
        return done.stdout.decode().strip(), done.returncode

    subprocess.run(["wine", "regsvr32", "/s", windows(SERVER)], check=True, timeout=60)
    try:
        expect(run("checkin", "--model", "type12000", "--room", "204", "--name", "Renè", "--language", "it"),
               ("<STX>GI|RN204|GNRenè|GLIT|<ETX>", 0), "a command")
        expect(run("name", "--model", "TYPE10020", "--room", "204", "--name", "Rossi"), ("", 1), "no order of this model")
        expect(run(*order), ("<OK>", 0), "an order carried out")
        exchange.fault = "wrong"
        expect(run(*order), ("<ERROR>", 1), "an order that the exchange refuses")
        expect(run("wakeup", "--model", "TYPE10012", "--room", "204"), ("", 2), "an order without its time")
    finally:
        subprocess.run(["wine", "regsvr32", "/s", "/u", windows(SERVER)], check=True, timeout=60)


NETWORK_FAULTS = ["reset", "endless", "garbage", "wrong", "empty", "server_error"]
HTTP_FAULTS = NETWORK_FAULTS + ["endless_401", "redirect"]
SCENARIOS = [
    # Ten seconds to the connection, and another ten to the answer, and some for a busy machine.
    *[long_fault(kind, "absent", 12000) for kind in TYPES],
    *[long_fault(kind, fault, 12000 if kind is Innovaphone else 22000) for kind in TYPES for fault in ("silence", "drip")],
    long_fault(Grandstream, "no_handshake", 12000),
    long_fault(Grandstream, "no_tls", 5000),
    ip_office_of_an_unknown_name,
    panasonic_faults,
    panasonic_carries_out_orders,
    innovaphone_carries_out_orders,
    grandstream_carries_out_orders,
    grandstream_certificate_may_be_expired_and_for_another_name,
    ip_office_carries_out_all_orders,
    quick_faults(Innovaphone, HTTP_FAULTS),
    quick_faults(Grandstream, HTTP_FAULTS),
    quick_faults(IpOffice, NETWORK_FAULTS),
    *[another_order_meanwhile(kind) for kind in TYPES],
    wrong_credentials,
    the_host_program_shows_commands_and_verdicts,
]


def run(scenario):
    try:
        scenario()
        return None
    except Exception as error:  # whatever it is, the other scenarios go on
        return f"{type(error).__name__}: {error}"


def main():
    shutil.rmtree(FOLDER, ignore_errors=True)
    os.makedirs(FOLDER)
    for expired in (False, True):
        make_certificate(FOLDER, expired)
    wanted = [s for s in SCENARIOS if len(sys.argv) < 6 or sys.argv[5] in s.__name__]
    with concurrent.futures.ThreadPoolExecutor(max_workers=len(SCENARIOS)) as pool:
        results = list(zip(wanted, pool.map(run, wanted)))
    for kind, fault, milliseconds in sorted(measured):
        print(f"  {kind:12} {fault:28} {milliseconds:6} ms")
    failed = [(scenario, error) for scenario, error in results if error]
    for scenario, error in failed:
        print(f"FAILED {scenario.__name__}: {error}")
    print(f"{len(results)} scenarios, {len(failed)} failed")
    sys.exit(1 if failed or not results else 0)


if __name__ == "__main__":
    main()
