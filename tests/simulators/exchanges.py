"""Exchanges that answer as the real ones do, on free ports of this machine, and that fail on demand.

Each runs in threads of its own and keeps what it received, byte for byte.
"""
import base64
import contextlib
import os
import socket
import ssl
import struct
import subprocess
import threading
import time

USER, PASSWORD = "hotel", "pa ss:word"


class Exchange:
    """Listens from the start. `fault` names what the next connections get instead of the answer; "" is none."""

    def __init__(self, fault=""):
        self.fault = fault
        self.received = []  # requests, in the order of their coming
        self.socket = socket.socket()
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        self.socket.bind(("127.0.0.1", 0))
        self.port = self.socket.getsockname()[1]
        self.fillers = []
        if fault == "absent":
            self._fill_queue()
        elif fault != "refused":
            self._accept()

    def recover(self):
        """From now on everything is well."""
        fault, self.fault = self.fault, ""
        for filler in self.fillers:
            filler.close()
        if fault in ("absent", "refused"):
            self._accept()

    def _fill_queue(self):
        """Nobody takes calls, and the queue is full: the system ignores further calls."""
        self.socket.listen(0)
        for _ in range(4):
            filler = socket.socket()
            filler.setblocking(False)
            filler.connect_ex(("127.0.0.1", self.port))
            self.fillers.append(filler)

    def _accept(self):
        self.socket.listen(16)
        threading.Thread(target=self._accept_all, daemon=True).start()

    def _accept_all(self):
        while True:
            try:
                connection, _ = self.socket.accept()
            except OSError:
                return
            threading.Thread(target=self._serve, args=(connection,), daemon=True).start()

    def _serve(self, connection):
        with connection, contextlib.suppress(OSError, ValueError):
            connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            self.converse(connection)

    def orders(self):
        """The orders that came: their whole requests."""
        return self.received

    # --- faults ---

    def fail(self, connection):
        getattr(self, "fault_" + self.fault)(connection)

    def fault_empty(self, connection):
        connection.sendall(http_answer(""))

    def fault_server_error(self, connection):
        connection.sendall(http_answer("<h1>Internal Server Error</h1>", "500 Internal Server Error"))

    def fault_silence(self, connection):
        while connection.recv(4096):
            pass

    def fault_reset(self, connection):
        answer = self.good_answer()
        connection.sendall(answer[:answer.index(self.CONFIRMED.encode()) + 8])  # in the middle of the success text
        time.sleep(0.2)
        connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        connection.close()

    def fault_drip(self, connection):
        for byte in self.good_answer():
            connection.sendall(bytes([byte]))
            time.sleep(1)

    def fault_late(self, connection):
        """No fault really: a good answer that lets one wait."""
        time.sleep(2)
        connection.sendall(self.good_answer())

    def fault_garbage(self, connection):
        connection.sendall(bytes(range(256)) * 16)

    def fault_endless(self, connection):
        connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n\r\n")
        while True:
            connection.sendall(b"x" * 65536)


def read_request(connection):
    """The header, and what came with it; b"" when the caller has hung up."""
    request = b""
    while b"\r\n\r\n" not in request:
        more = connection.recv(65536)
        if not more:
            return b""
        request += more
    return request


def header_of(request, name):
    for line in request.split(b"\r\n\r\n")[0].split(b"\r\n")[1:]:
        key, _, value = line.partition(b":")
        if key.strip().lower() == name.lower().encode():
            return value.strip().decode("latin-1")
    return None


def http_answer(body, status="200 OK", headers=""):
    length = len(body.encode())
    return f"HTTP/1.1 {status}\r\nContent-Type: text/xml\r\n{headers}Content-Length: {length}\r\n\r\n{body}".encode()


class HttpExchange(Exchange):
    """Asks for Basic credentials and takes no others than its own."""

    AUTHORIZATION = "Basic " + base64.b64encode(f"{USER}:{PASSWORD}".encode()).decode()

    def converse(self, connection):
        while request := read_request(connection):
            self.received.append(request)
            authorized = header_of(request, "Authorization") == self.AUTHORIZATION
            if not authorized or self.fault == "endless_401":
                challenge = 'WWW-Authenticate: Basic realm="exchange"\r\n'
                connection.sendall(http_answer("<error>who?</error>", "401 Unauthorized", challenge))
            elif self.fault:
                self.fail(connection)
                return
            else:
                connection.sendall(self.good_answer())

    def orders(self):
        """The request targets that came with the right credentials."""
        return [r.split(b" ")[1].decode() for r in self.received if header_of(r, "Authorization") == self.AUTHORIZATION]

    def good_answer(self):
        return http_answer(self.ANSWER)

    def fault_wrong(self, connection):
        connection.sendall(http_answer(self.WRONG))

    def fault_redirect(self, connection):
        connection.sendall(http_answer("", "302 Found", f"Location: {self.elsewhere}\r\n"))


class Innovaphone(HttpExchange):
    ANSWER = CONFIRMED = '<show state="ok"/>'
    WRONG = '<show state="error"/>'


class Grandstream(HttpExchange):
    CONFIRMED = "SUCCESS"
    ANSWER = '<pms_data_response><status>SUCCESS</status></pms_data_response>'
    WRONG = '<pms_data_response><status>FAILURE</status></pms_data_response>'

    def __init__(self, folder, fault="", expired=False):
        self.context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        self.context.load_cert_chain(*make_certificate(folder, expired))
        super().__init__(fault)

    def converse(self, connection):
        if self.fault == "no_handshake":
            self.fault_silence(connection)
        elif self.fault == "no_tls":
            self.fault_garbage(connection)
        else:
            with self.context.wrap_socket(connection, server_side=True) as secure:
                super().converse(secure)


class IpOffice(Exchange):
    CONFIRMED = "&lt;ConfigTransferred&gt;True&lt;/ConfigTransferred&gt;"

    def converse(self, connection):
        request = read_request(connection)
        if not request:
            return None
        header, _, body = request.partition(b"\r\n\r\n")
        if self.fault in ("silence", "reset"):
            self.received.append(request)
            return self.fail(connection)
        if header_of(request, "Expect") == "100-continue":
            connection.sendall(b"HTTP/1.1 100 Continue\r\n\r\n")
        while len(body) < int(header_of(request, "Content-Length")):
            more = connection.recv(65536)
            if not more:
                return None
            body += more
        self.received.append(header + b"\r\n\r\n" + body)
        if self.fault:
            return self.fail(connection)
        connection.sendall(self.good_answer())
        return self.fault_silence(connection)  # the caller hangs up

    def good_answer(self, transferred=CONFIRMED):
        return http_answer('<?xml version="1.0"?><soap:Envelope><soap:Body><SetUnitConfigurationResponse>'
                           f'<SetUnitConfigurationResult>&lt;Response&gt;{transferred}&lt;/Response&gt;'
                           '</SetUnitConfigurationResult></SetUnitConfigurationResponse></soap:Body></soap:Envelope>')

    def fault_wrong(self, connection):
        connection.sendall(self.good_answer(self.CONFIRMED.replace("True", "False")))


def make_certificate(folder, expired=False):
    """Certificate and key: self-signed for another name, valid, or over. Made once per folder."""
    name = os.path.join(folder, "expired" if expired else "own")
    certificate, key, request = name + ".pem", name + ".key", name + ".csr"
    if not os.path.exists(certificate):
        for command in (["req", "-newkey", "rsa:2048", "-nodes", "-keyout", key, "-out", request,
                         "-subj", "/CN=somewhere.example"],
                        ["x509", "-req", "-in", request, "-signkey", key, "-out", certificate,
                         "-days", "0" if expired else "3650"]):
            subprocess.run(["openssl", *command], check=True, capture_output=True)
    return certificate, key
