import QtQuick
import QtTest
import Orvex

KitCase {
    id: testCase

    name: "Motion"

    Component {
        id: spring

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

    function test_firstValueIsTakenOver() {
        testCase.OrvexMotion.reduced = false;
        const item = make(spring);
        compare(item.spring.value, 1);
        verify(!item.spring.running);
    }

    function test_springOvershootsAndSettles() {
        testCase.OrvexMotion.reduced = false;
        const item = make(spring);
        item.spring.to = 2;
        verify(item.spring.running);
        let highest = 1;
        item.spring.valueChanged.connect(() => highest = Math.max(highest, item.spring.value));
        tryCompare(item.spring, "running", false);
        compare(item.spring.value, 2);
        compare(item.spring.velocity, 0);
        verify(highest > 2.05);
        verify(highest < 2.2);
    }

    function test_springKeepsItsVelocity() {
        testCase.OrvexMotion.reduced = false;
        const item = make(spring);
        item.spring.to = 2;
        tryVerify(() => item.spring.velocity > 1);
        const value = item.spring.value;
        const velocity = item.spring.velocity;
        item.spring.to = 1;
        compare(item.spring.value, value);
        compare(item.spring.velocity, velocity);
        tryCompare(item.spring, "running", false);
        compare(item.spring.value, 1);
    }

    function test_reducedMotionJumps() {
        testCase.OrvexMotion.reduced = false;
        const item = make(spring);
        item.spring.to = 2;
        verify(item.spring.running);
        testCase.OrvexMotion.reduced = true;
        verify(!item.spring.running);
        compare(item.spring.value, 2);
        item.spring.to = 5;
        compare(item.spring.value, 5);
        verify(!item.spring.running);
    }

    function test_jump() {
        testCase.OrvexMotion.reduced = false;
        const item = make(spring);
        item.spring.to = 2;
        item.spring.jump(7);
        compare(item.spring.to, 7);
        compare(item.spring.value, 7);
        verify(!item.spring.running);
    }

    function test_aHiddenWindowRests() {
        testCase.OrvexMotion.reduced = false;
        const view = createTemporaryObject(window, testCase);
        const motion = view.backdrop.OrvexMotion;
        tryCompare(motion, "running", true);
        verify(motion.animated);
        tryVerify(() => view.backdrop.time > 0);
        view.spring.to = 1;
        verify(view.spring.running);

        view.hide();
        tryCompare(motion, "running", false);
        verify(!motion.animated);
        compare(view.spring.value, 1);
        const time = view.backdrop.time;
        const frames = view.frames;
        wait(150);
        compare(view.backdrop.time, time);
        compare(view.frames, frames);

        view.show();
        tryVerify(() => view.backdrop.time > time);
    }

    function test_reducedMotionStopsTheBackdrop() {
        testCase.OrvexMotion.reduced = false;
        const view = createTemporaryObject(window, testCase);
        tryVerify(() => view.backdrop.time > 0);
        testCase.OrvexMotion.reduced = true;
        verify(view.backdrop.OrvexMotion.running);
        const time = view.backdrop.time;
        wait(150);
        compare(view.backdrop.time, time);
    }
}
