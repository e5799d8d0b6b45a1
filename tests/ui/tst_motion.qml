import QtQuick
import QtTest
import Orvex

KitCase {
    id: testCase

    name: "Motion"

    Component {
        id: springItem

        Item {
            property alias spring: inner

            OrvexSpring {
                id: inner

                dampingFraction: 0.5
                response: 0.3
                to: 1
            }
        }
    }

    Component {
        id: window

        Window {
            property alias backdrop: backdrop
            property alias spring: inner
            property int frames: 0

            height: 300
            visible: true
            width: 400

            onFrameSwapped: ++frames

            OrvexAnimatedBackdrop {
                id: backdrop

                anchors.fill: parent
            }

            OrvexSpring {
                id: inner
            }
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

    function test_springOvershootsAndSettles() {
        const spring = makeSpring();
        let highest = 1;
        spring.valueChanged.connect(() => highest = Math.max(highest, spring.value));
        tryCompare(spring, "running", false);
        compare(spring.value, 2);
        compare(spring.velocity, 0);
        verify(highest > 2.05 && highest < 2.2, highest);
    }

    function test_springKeepsItsVelocity() {
        const spring = makeSpring();
        tryVerify(() => spring.velocity > 1);
        const [value, velocity] = [spring.value, spring.velocity];
        spring.to = 1;
        compare(spring.value, value);
        compare(spring.velocity, velocity);
        tryCompare(spring, "running", false);
        compare(spring.value, 1);
    }

    function test_springJumps() {
        const spring = makeSpring();
        spring.jump(7);
        compare(spring.to, 7);
        compare(spring.value, 7);
        verify(!spring.running);
        spring.to = 2;
        testCase.OrvexMotion.reduced = true;
        verify(!spring.running);
        compare(spring.value, 2);
        spring.to = 5;
        compare(spring.value, 5);
        verify(!spring.running);
    }

    function test_onlyASeenAndWantedBackdropMoves() {
        testCase.OrvexMotion.reduced = false;
        const view = createTemporaryObject(window, testCase);
        const motion = view.backdrop.OrvexMotion;
        tryVerify(() => view.backdrop.time > 0);
        verify(motion.running && motion.animated);
        view.spring.to = 1;
        verify(view.spring.running);

        view.hide();
        tryCompare(motion, "running", false);
        verify(!motion.animated);
        compare(view.spring.value, 1);
        let time = view.backdrop.time;
        const frames = view.frames;
        wait(150);
        compare(view.backdrop.time, time);
        compare(view.frames, frames);

        view.show();
        tryVerify(() => view.backdrop.time > time);
        testCase.OrvexMotion.reduced = true;
        verify(motion.running);
        time = view.backdrop.time;
        wait(150);
        compare(view.backdrop.time, time);
    }
}
