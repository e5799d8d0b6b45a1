import QtQuick
import QtQuick.Templates as T
import QtTest
import Orvex

KitCase {
    id: testCase

    name: "Layout"

    Component {
        id: grid

        OrvexAdaptiveGrid {
            property alias count: repeater.model

            minimumWidth: 145
            spacing: 10

            Repeater {
                id: repeater

                Item {
                    required property int index

                    implicitHeight: index === 1 ? 60 : 30
                    implicitWidth: 20
                }
            }
        }
    }

    Component {
        id: wrapping

        OrvexAdaptiveGrid {
            minimumWidth: 400

            OrvexSectionTitle {
                eyebrow: "A"
                subtitle: "Uzun bir metin, dar bir sütunda birkaç satıra sarılır ve kutusunu yükseltir"
                title: "Başlık"
            }

            OrvexMetric {
                label: "FPS"
                value: "25.00"
            }
        }
    }

    Component {
        id: scrollPage

        OrvexScrollPage {
            property alias count: repeater.model
            property alias first: first

            height: 200
            width: 300

            OrvexPrimaryButton {
                id: first

                icon: "bolt.fill"
                title: "İlk"
            }

            Repeater {
                id: repeater

                OrvexToolCard {
                    required property int index

                    icon: "bolt.fill"
                    objectName: "card" + index
                    subtitle: "Alt başlık"
                    title: "Kart " + index
                }
            }
        }
    }

    function cells(item) {
        return Array.from(item.children).filter(child => child.implicitHeight > 0);
    }

    function test_columns_data() {
        return [
            {
                tag: "no room",
                width: 100,
                columns: 1
            },
            {
                tag: "one short of two",
                width: 299,
                columns: 1
            },
            {
                tag: "exactly two",
                width: 300,
                columns: 2
            },
            {
                tag: "wide",
                width: 620,
                columns: 4
            }
        ];
    }

    function test_columns(data) {
        const item = make(grid, {
            count: 5,
            width: data.width
        });
        compare(item.columns, data.columns);
        const all = cells(item);
        compare(all.length, 5);
        for (let i = 0; i < 5; ++i) {
            const column = i % data.columns;
            const row = all.filter((cell, other) => Math.floor(other / data.columns) === Math.floor(i / data.columns));
            compare(all[i].height, Math.max(...row.map(cell => cell.implicitHeight)));
            compare(all[i].x, Math.round(all[i].x));
            fuzzyCompare(all[i].width, (data.width + 10) / data.columns - 10, 1);
            if (column > 0)
                compare(all[i].x, all[i - 1].x + all[i - 1].width + 10);
            if (column === data.columns - 1)
                compare(all[i].x + all[i].width, data.width);
        }
        const last = all[4];
        compare(item.implicitHeight, last.y + last.height);
    }

    function test_gridFollowsItsCells() {
        const item = make(grid, {
            count: 3,
            width: 640
        });
        compare(item.implicitHeight, 60);
        cells(item)[1].visible = false;
        tryCompare(item, "implicitHeight", 30);
        compare(cells(item)[2].x, cells(item)[1].x);
        item.count = 0;
        tryCompare(item, "implicitHeight", 0);
        item.count = 9;
        tryCompare(item, "implicitHeight", 60 + 10 + 30 + 10 + 30);
    }

    function test_wrappedTextsMakeRowsHigher() {
        const item = make(wrapping, {
            width: 640
        });
        const height = item.implicitHeight;
        item.width = 300;
        tryVerify(() => item.implicitHeight > height);
        item.minimumWidth = 140;
        tryCompare(item, "columns", 2);
        const all = cells(item);
        tryVerify(() => all[0].height === all[1].height && all[0].height >= all[0].implicitHeight);
    }

    function test_scrollPageByKeyboard() {
        const page = make(scrollPage, {
            count: 12
        });
        page.forceActiveFocus();
        const end = page.contentHeight - page.height;
        verify(end > 300);
        keyClick(Qt.Key_End);
        compare(page.contentY, Math.round(end));
        keyClick(Qt.Key_Home);
        compare(page.contentY, 0);
        keyClick(Qt.Key_PageDown);
        compare(page.contentY, 180);
        keyClick(Qt.Key_PageUp);
        compare(page.contentY, 0);
        keyClick(Qt.Key_Down);
        compare(page.contentY, 48);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up);
        compare(page.contentY, 0);
    }

    function test_shortPageDoesNotScroll() {
        const page = make(scrollPage, {
            count: 0
        });
        page.forceActiveFocus();
        keyClick(Qt.Key_End);
        compare(page.contentY, 0);
        verify(!page.T.ScrollBar.vertical.visible);
    }

    function test_focusIsBroughtIntoView() {
        const page = make(scrollPage, {
            count: 12
        });
        const shown = item => {
            const top = item.mapToItem(page, 0, 0).y;
            return top >= 0 && top + item.height <= page.height;
        };
        page.first.forceActiveFocus(Qt.TabFocusReason);
        for (let i = 0; i < 12; ++i) {
            keyClick(Qt.Key_Tab);
            verify(shown(page.Window.activeFocusItem), i);
        }
        compare(page.Window.activeFocusItem.objectName, "card11");
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Backtab);
        for (let i = 0; i < 11; ++i)
            keyClick(Qt.Key_Backtab);
        verify(shown(page.Window.activeFocusItem));
    }

    function test_pressingDoesNotScroll() {
        const page = make(scrollPage, {
            count: 12
        });
        page.contentY = 30;
        const cut = page.first;
        mousePress(page, 40, 10);
        compare(page.contentY, 30);
        mouseRelease(page, 40, 10);
        compare(page.contentY, 30);
        verify(!cut.visualFocus);
    }
}
