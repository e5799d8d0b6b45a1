import QtQuick
import Orvex

KitCase {
    id: testCase

    name: "Motion"

    Component {
        id: springItem

        Item {
            property alias spring: inner

            OrvexSpring { id: inner; dampingFraction: 0.5; response: 0.3; to: 1 }
        }
    }

    Component {
        id: window

        Window {
            property alias backdrop: backdrop
            property int frames: 0

            height: 300
            visible: true
            width: 400

            onFrameSwapped: ++frames

            OrvexAnimatedBackdrop { id: backdrop; anchors.fill: parent }
        }
    }

    function makeSpring() {
        testCase.OrvexMotion.reduced = false;
        const spring = make(springItem).spring;
        compare(spring.value, 1, "the first value is taken over");
        verify(!spring.running);
        spring.to = 2;
        verify(spring.running);
        return spring;
    }

    function test_springOvershootsKeepsItsVelocityAndSettles() {
        const spring = makeSpring();
        let highest = 1;
        spring.valueChanged.connect(() => highest = Math.max(highest, spring.value));
        tryVerify(() => highest > 2.05 && spring.velocity < -1);
        const [value, velocity] = [spring.value, spring.velocity];
        spring.to = 1;
        compare([spring.value, spring.velocity], [value, velocity]);
        tryCompare(spring, "running", false);
        compare([spring.value, spring.velocity], [1, 0]);
    }

    function test_springJumps() {
        const spring = makeSpring();
        spring.jump(7);
        compare([spring.to, spring.value, spring.running], [7, 7, false]);
        spring.to = 2;
        testCase.OrvexMotion.reduced = true;
        compare([spring.value, spring.running], [2, false]);
        spring.to = 5;
        compare([spring.value, spring.running], [5, false]);
    }

    function test_onlyASeenAndWantedBackdropMoves() {
        testCase.OrvexMotion.reduced = false;
        const view = createTemporaryObject(window, testCase);
        tryVerify(() => view.backdrop.time > 0);
        view.hide();
        tryCompare(view.backdrop.OrvexMotion, "animated", false);
        let time = view.backdrop.time;
        const frames = view.frames;
        wait(150);
        compare(view.backdrop.time, time);
        compare(view.frames, frames);

        view.show();
        tryVerify(() => view.backdrop.time > time);
        testCase.OrvexMotion.reduced = true;
        time = view.backdrop.time;
        wait(150);
        compare(view.backdrop.time, time);
    }
}
