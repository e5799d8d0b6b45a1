import Orvex

// Carries one value of the drawn curve to a chosen preset's.
OrvexSpring {
    dampingFraction: 0.78
    response: 0.32
}
