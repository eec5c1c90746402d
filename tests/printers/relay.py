"""Stands before a printing system and passes on what both sides say: its answers late, or nothing
at all."""
import queue
import socket
import threading
import time

SEND_DOCUMENT = b"\x02\x00\x00\x06"  # version and operation of the request


class Relay:
    """Started by `with`; `port` is where it listens."""

    def __init__(self, port):
        self.target = port
        self.answers_late = 0  # seconds
        self.first_answer_late = 0
        self.document_answer_late = 0
        self.requests = 0
        self.passing = threading.Event()
        self.passing.set()
        self.closed = False
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.sockets = []

    def __enter__(self):
        threading.Thread(target=self.listen, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.closed = True
        self.passing.set()
        for one in [self.listener, *self.sockets]:
            try:
                one.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass
            one.close()

    def freeze(self):
        self.passing.clear()

    def thaw(self):
        self.passing.set()

    def listen(self):
        while not self.closed:
            try:
                client, _ = self.listener.accept()
                server = socket.create_connection(("127.0.0.1", self.target))
            except OSError:
                return
            self.sockets += [client, server]
            Talk(self, client, server)


class Talk:
    """One connection."""

    def __init__(self, relay, client, server):
        self.relay = relay
        self.document_sent = False
        self.answers = queue.Queue()
        for work in (lambda: self.ask(client, server), lambda: self.hear(server),
                     lambda: self.answer(client)):
            threading.Thread(target=work, daemon=True).start()

    def ask(self, client, server):
        try:
            while data := client.recv(65536):
                self.relay.passing.wait()
                self.relay.requests += data.count(b"POST /")
                self.document_sent = self.document_sent or SEND_DOCUMENT in data
                server.sendall(data)
            server.shutdown(socket.SHUT_WR)
        except OSError:
            pass

    def hear(self, server):
        data = b" "
        while data:
            try:
                data = server.recv(65536)
            except OSError:
                data = b""
            late = self.relay.answers_late + self.relay.first_answer_late
            self.relay.first_answer_late = 0
            if self.document_sent and b" 100 " not in data[:20]:
                late += self.relay.document_answer_late
                self.relay.document_answer_late = 0
            self.answers.put((time.monotonic() + late, data))

    def answer(self, client):
        try:
            while True:
                due, data = self.answers.get()
                time.sleep(max(0, due - time.monotonic()))
                self.relay.passing.wait()
                if not data:
                    break
                client.sendall(data)
            client.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass
