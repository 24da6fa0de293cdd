"""The first screen: every command is a push button with its caption for a name and its lamp as a state, lists bear their
label and are chosen in by their items, the counter is read out when it changes, panels open and close by actions."""
from lecteur import *

open(DOSSIER + "/Data/Configuration.Con", "w").close()  # so that no note greets
l = Lecteur()
COMMANDES = {"Quit", "Open", "Resume", "Activate or Remove pup-up help", "Move then window on the desk top",
             "Configure", "Refresh", "Diagnostics"}
def eteints():  # the toolkit's bridge keeps to itself which can be lit
    return {b.name for b in l.tous(ROLE_PUSH_BUTTON) if b.name in COMMANDES and not b.getState().contains(STATE_CHECKED)}
attendre("the commands of the first screen, with their lamps", eteints, COMMANDES)
noms = [b.name.strip() for b in l.tous(ROLE_PUSH_BUTTON)]
assert all(noms) and len(noms) == len(set(noms)), f"buttons without a name or with the same: {noms}"
attendre("the counter", l.compteur, "Configure, then Open")
l.presser("Button Language French")
attendre("the counter read out in its new language", lambda: l.dit("Configuration, puis Ouvrir"))
l.presser("Bouton Langue Anglaise")
configurer = attendre("the button of the panel", lambda: l.bouton("Configure"))
configurer.queryComponent().grabFocus()
attendre("the focus by action", lambda: l.bouton("Configure").getState().contains(STATE_FOCUSED))
l.presser("Configure")
LISTES = ["Loom Port:", "Scrolling Direction:", "Weave Option:", "Weave Direction:", "Starting Bar:", "Starting Tabby:"]
attendre("the lists of the panel", lambda: [c.name for c in l.tous(ROLE_COMBO_BOX)], LISTES)
attendre("the keyboard in the panel", lambda: l.bouton("Cancel").getState().contains(STATE_FOCUSED))
l.choisir("Weave Option:", "Pattern")
attendre("the item marked as chosen", lambda: next(
    e for e in l.liste("Weave Option:") if e.name == "Pattern").getState().contains(STATE_SELECTED))
l.presser("Exit")
attendre("the keyboard back at its button", lambda: l.bouton("Configure").getState().contains(STATE_FOCUSED))
l.presser("Diagnostics")
attendre("the diagnostics", lambda: l.bouton("End Diagnostics"))
l.presser("Quit")
l.presser("Activate or Remove pup-up help")
attendre("the lamp of the help", lambda: l.allume("Activate or Remove pup-up help"))
l.quitter()
