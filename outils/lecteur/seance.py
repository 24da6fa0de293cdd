"""A day without the screen: the first settings, a pattern, twenty picks each heard, stop, save, quit, and the next day."""
from lecteur import *

JOURNAL = os.environ["journal"]


def sheds():
    """Harnesses of each shed that the loom received."""
    with open(JOURNAL) as f:
        return [re.findall(r"\d+", ligne.split()[2]) for ligne in f if ligne.startswith("shed ")]


def entendues(dits):
    """Harnesses of each pick that was announced; what is said anew of the same pick is no other."""
    picks = []
    for texte in dits:
        m = re.match(r"Pick (\d+) of \d+, harness(?:es)? (.*)", texte)
        if m and (not picks or picks[-1][0] != m[1]):
            picks.append((m[1], re.findall(r"\d+", m[2])))
    return picks


l = Lecteur()
attendre("the message of the first day, read out", lambda: "Error File not found" in l.dits)
l.presser("Configure")
l.choisir("Loom Port:", "COM 1")
l.choisir("Weave Option:", "Pattern")
l.presser("Exit")
l.presser("Open")
nom = attendre("the name in the dialogue", lambda: next(t for t in l.tous(ROLE_TEXT) if "ile" in t.name))
nom.queryEditableText().setTextContents("Sapins24.Wif")
dialogue = nom
while dialogue.getRole() not in (pyatspi.ROLE_FILE_CHOOSER, pyatspi.ROLE_DIALOG):
    dialogue = dialogue.parent
attendre("the dialogue's own button", lambda: next(
    b for b in l.tous(ROLE_PUSH_BUTTON, dialogue) if b.name.replace("&", "") == "Open")).queryAction().doAction(0)
attendre("the start", lambda: l.bouton("Strart"))
attendre("the counter before the first pick", lambda: l.compteur().startswith("Pick 120 of 120"))
del l.dits[:], l.noms[:]
l.presser("Strart")
attendre("twenty sheds", lambda: len(sheds()) >= 20)
l.presser("Stop")
attendre("the stop", lambda: l.bouton("Strart") and l.allume("Stop"))
attendre("the last pick read out", lambda: len(entendues(l.dits)) >= len(sheds()))
leves, dites = sheds(), [lames for _, lames in entendues(l.dits)]
assert dites[:len(leves)] == leves, f"heard {dites}, the loom had {leves}"
autres = [n for n in l.noms if n == "-" or n.strip().isdigit()]
assert not autres, f"names of rows told: {autres}"
avant = l.compteur()
l.presser("Save")
attendre("the project", lambda: os.path.getsize(DOSSIER + "/Data/Resume.Trm"))
l.quitter()

del l.dits[:]
l.lancer()
l.presser("Resume")
attendre("the pick of the day before", l.compteur, avant)
l.quitter()
