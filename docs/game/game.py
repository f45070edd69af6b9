#!/usr/bin/python3
# SPDX-License-Identifier: MIT
# game.py PROGRAM GAME LANGUAGE [TROPHIES]: a game in Python. Starts the companion and prints what it hears.
import subprocess
import sys

import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib


class Game(dbus.service.Object):
    @dbus.service.method("game.Link", in_signature="s", out_signature="s")
    def recive(self, message):
        print("heard", message, flush=True)
        return "heard"


bus = dbus.SessionBus(mainloop=dbus.mainloop.glib.DBusGMainLoop())
game = Game(dbus.service.BusName("com.quelmora.QtDBus.Torvane", bus), "/")
loop = GLib.MainLoop()
companion = subprocess.Popen(sys.argv[1:])
GLib.child_watch_add(companion.pid, lambda _, status: (print("ended", status >> 8, flush=True), loop.quit()))
loop.run()
