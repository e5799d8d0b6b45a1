import QtQuick
import Orvex

KitCase {
    id: testCase

    name: "Cards"

    property int made: 0

    Component {
        id: cards

        // Five lines of four cards are shown.
        OrvexCardView {
            columnPitch: 50
            columns: 4
            rowPitch: 20
            shownHeight: 100

            delegate: FocusScope {
                required property int index
                required property string title

                height: 20
                width: 50

                Component.onCompleted: ++testCase.made
            }
            model: ListModel {
                Component.onCompleted: {
                    for (let i = 0; i < 1000; ++i)
                        append({ title: "Kart " + i });
                }
            }
        }
    }

    function shown(view) {
        view.cardAt(0);
        return Array.from(view.children).filter(card => card.visible).sort((a, b) => a.index - b.index);
    }

    function filled() {
        made = 0;
        const view = make(cards);
        compare(view.count, 1000);
        return view;
    }

    function test_cardsStandForOtherRowsWhereTheyAreScrolledTo() {
        const view = filled();
        compare(shown(view).map(card => card.index), [...Array(28).keys()]);
        const most = 36;
        for (const top of [3, 97, 1500, 4900, 9000, 640, 0]) {
            view.shownTop = top;
            const all = shown(view);
            for (const card of all) {
                compare(card.title, "Kart " + card.index);
                compare([card.x, card.y], [card.index % 4 * 50, Math.floor(card.index / 4) * 20]);
            }
            const first = Math.floor(top / 20) * 4;
            for (let row = first; row < Math.min(1000, first + 20); ++row)
                compare(all.filter(card => card.index === row).length, 1, "row " + row + " at " + top);
            verify(made <= most, made + " made at " + top);
        }
    }

    function test_theFocusStaysWithItsCard() {
        const view = filled();
        const card = view.cardAt(5);
        card.forceActiveFocus();
        view.shownTop = 3000;
        verify(shown(view).includes(card) && card.activeFocus);
        compare([card.index, card.title, card.y], [5, "Kart 5", 20]);
        view.cardAt(600).forceActiveFocus();
        view.shownTop = 3001;
        verify(!shown(view).includes(card) || card.index !== 5);
        compare(view.cardAt(5), null);
    }

    function test_whatTheRowsSayIsFollowed() {
        const view = filled();
        view.model.setProperty(2, "title", "Yeni");
        compare(view.cardAt(2).title, "Yeni");
        view.model.remove(0);
        compare([view.count, view.cardAt(1).title, view.cardAt(2).title], [999, "Yeni", "Kart 3"]);
        view.model.insert(1, { title: "Araya" });
        compare(shown(view).slice(0, 4).map(card => card.title), ["Kart 1", "Araya", "Yeni", "Kart 3"]);
        view.cardAt(9).forceActiveFocus();
        view.model.remove(3, 997);
        compare(shown(view).map(card => card.title), ["Kart 1", "Araya", "Yeni"]);
        view.model.append({ title: "Son" });
        const again = shown(view);
        compare(again.map(card => card.title), ["Kart 1", "Araya", "Yeni", "Son"]);
        verify(!again.some(card => card.activeFocus));
        view.model = null;
        compare([view.count, shown(view).length], [0, 0]);
    }
}
