"""Reads and writes the restart record with the QDataStream of PyQt5, which shares no code with the module.

restart_record.py read   the record's text on standard input, its content as JSON on standard output
restart_record.py write  the other way round
"""

import base64
import json
import sys

from PyQt5.QtCore import QByteArray, QDataStream, QIODevice


def read(text):
    stream = QDataStream(QByteArray(base64.b64decode(text, validate=True)))
    urls = stream.readQStringList()
    belong_type = stream.readQString()
    if stream.status() != QDataStream.Ok or not stream.atEnd():
        sys.exit("not a sound record")
    return json.dumps({"routerUrls": urls, "belongType": belong_type})


def write(text):
    content = json.loads(text)
    record = QByteArray()
    stream = QDataStream(record, QIODevice.WriteOnly)
    stream.writeQStringList(content["routerUrls"])
    stream.writeQString(content["belongType"])
    return base64.b64encode(bytes(record)).decode("ascii")


action = {"read": read, "write": write}[sys.argv[1]]
sys.stdout.buffer.write(action(sys.stdin.buffer.read().decode("utf-8")).encode("utf-8"))
