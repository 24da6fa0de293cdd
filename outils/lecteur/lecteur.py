"""The program as a screen reader has it: over the desktop's accessibility bus, by names, states and actions alone."""
import os, re, subprocess, sys, time
import gi
import pyatspi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib
from pyatspi import ROLE_COMBO_BOX, ROLE_LABEL, ROLE_PUSH_BUTTON, ROLE_TEXT, STATE_CHECKED, STATE_FOCUSABLE, STATE_FOCUSED, STATE_SELECTED, STATE_SHOWING

DOSSIER = os.environ["essai"]
DELAI = 60  # seconds; only a failure takes them


def ecouter():
    while GLib.MainContext.default().iteration(False):
        pass


def attendre(quoi, lire, voulu=None):
    """What `lire` gives once it is `voulu`, or true."""
    fin, trouve = time.monotonic() + DELAI, None
    while time.monotonic() < fin:
        ecouter()
        try:
            trouve = lire()
            if trouve == voulu if voulu is not None else trouve:
                return trouve
        except Exception:  # the bus is not there yet, or the widget went meanwhile
            pass
        time.sleep(0.05)
    sys.exit(f"Gave up waiting for {quoi}: {trouve}")


class Lecteur:
    """Starts the program, hears what it announces, and presses."""

    def __init__(self):
        self.dits, self.noms = [], []
        self.annonces = Atspi.EventListener.new(lambda e: self.dits.append(e.any_data))
        self.annonces.register("object:announcement")
        self.changes = Atspi.EventListener.new(lambda e: self.noms.append(str(e.any_data)))
        self.changes.register("object:property-change:accessible-name")
        self.lancer()

    def lancer(self):
        self.programme_lance = subprocess.Popen([DOSSIER + "/brandis"])
        attendre("the program on the bus", self.programme)

    def programme(self):
        pid = self.programme_lance.pid
        return next((a for a in pyatspi.Registry.getDesktop(0) if a and a.get_process_id() == pid), None)

    def tous(self, role, noeud=None):
        noeud = noeud or self.programme()
        if noeud.getRole() == role and noeud.getState().contains(STATE_SHOWING):
            yield noeud
        for enfant in noeud:
            if enfant:
                yield from self.tous(role, enfant)

    def un(self, role, nom):
        return next((b for b in self.tous(role) if b.name == nom), None)

    def bouton(self, nom):
        return self.un(ROLE_PUSH_BUTTON, nom)

    def presser(self, nom):
        action = attendre(nom, lambda: self.bouton(nom)).queryAction()
        assert action.getName(0).lower() == "press", action.getName(0)
        action.doAction(0)

    def allume(self, nom):
        return self.bouton(nom).getState().contains(STATE_CHECKED)

    def liste(self, nom):
        return self.un(ROLE_COMBO_BOX, nom)

    def choisir(self, nom, choix):
        attendre(nom, lambda: self.liste(nom))
        element = next((e for e in self.liste(nom) if e.name == choix), None)
        assert element, f"{choix} is not among {[e.name for e in self.liste(nom)]}"
        element.queryAction().doAction(0)
        attendre(f"{choix} chosen", lambda: self.liste(nom).description, choix)

    def compteur(self):
        """The one text that the keyboard reaches."""
        return next((t.name for t in self.tous(ROLE_LABEL) if t.getState().contains(STATE_FOCUSABLE) and not len(t)), None)

    def dit(self, debut):
        ecouter()
        return any(t.startswith(debut) for t in self.dits)

    def quitter(self):
        self.presser("Quit")
        assert self.programme_lance.wait(DELAI) == 0, "the program ended badly"
