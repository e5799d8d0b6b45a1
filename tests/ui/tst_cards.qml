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
            cardHeight: 14
            minimumWidth: 40
            shownHeight: 100
            spacing: 6
            width: 194

            delegate: FocusScope {
                required property int index
                required property string title

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

    Component {
        id: page_

        OrvexScrollPage {
            id: scrolled

            height: 300
            width: 400

            OrvexButton { objectName: "before"; title: "Önce" }
            OrvexCardGrid {
                id: grid

                cardHeight: 100
                minimumWidth: 150
                objectName: "grid"
                page: scrolled

                delegate: FocusScope {
                    required property int index

                    // Below the rest of the card, which is to be seen with it.
                    OrvexButton {
                        activeFocusOnTab: parent.index === grid.currentIndex || activeFocus
                        focus: true
                        title: "Uygula"
                        y: 70
                    }
                }
                model: ListModel {
                    Component.onCompleted: {
                        for (let i = 0; i < 100; ++i)
                            append({ title: "" });
                    }
                }
            }
            OrvexButton { objectName: "after"; title: "Sonra" }
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
                compare([card.x, card.y, card.width, card.height], [card.index % 4 * 50, Math.floor(card.index / 4) * 20, 44, 14]);
            }
            const first = Math.floor(top / 20) * 4;
            for (let row = first; row < Math.min(1000, first + 20); ++row)
                compare(all.filter(card => card.index === row).length, 1, "row " + row + " at " + top);
            verify(made <= most, made + " made at " + top);
        }
    }

    function test_theCurrentCardIsThereWhereverItIs() {
        const view = filled();
        view.currentIndex = 5;
        const card = view.cardAt(5);
        card.forceActiveFocus();
        view.shownTop = 3000;
        verify(shown(view).includes(card) && card.activeFocus);
        compare([card.index, card.title, card.y], [5, "Kart 5", 20]);
        view.currentIndex = 990;
        compare([view.cardAt(5), view.cardAt(990).title], [null, "Kart 990"]);
    }

    // From above and below the grid, whose current card has been scrolled away.
    function test_tabReachesTheCurrentCard() {
        const page = make(page_);
        const [before, grid, after] = ["before", "grid", "after"].map(name => below(page, item => item.objectName === name)[0]);
        for (const [from, key, top, index] of [[before, Qt.Key_Tab, 4000, 40], [null, Qt.Key_Home, 4000, 0], [after, Qt.Key_Backtab, 0, 40]]) {
            if (from) {
                grid.currentIndex = 40;
                from.forceActiveFocus(Qt.TabFocusReason);
            }
            page.scrollTo(top);
            waitForRendering(page);
            keyClick(key);
            const card = page.focusItem.parent;
            compare(card.index, index);
            const y = card.mapToItem(page, 0, 0).y;
            verify(y >= 0 && y + card.height <= page.height, "the whole card is seen");
        }
    }

    function test_aGridWithoutCardsTakesNoRoom() {
        const page = make(page_);
        below(page, item => item.objectName === "grid")[0].model.clear();
        waitForRendering(page);
        const [before, after] = ["before", "after"].map(name => below(page, item => item.objectName === name)[0]);
        compare(after.y - before.y - before.height, page.spacing);
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
