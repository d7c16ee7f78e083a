import QtQuick
import Tidlo.Design

ViewCase {
    name: "Surfaces"
    view: Component {
        Row {
            CardModifier { objectName: "card"; width: 100; height: 50 }
            TidloLogo { objectName: "logo"; size: 23 }
        }
    }

    function test_a_card_is_a_surface_and_nothing_else() {
        const card = item("card");
        compare([card.radius, card.borderWidth, card.children.length], [10, 0, 0]);
        compareColors([[card, "color", "cardSurface"]]);
    }

    function test_the_logo_is_as_large_as_it_is_told() {
        const logo = item("logo");
        compare([logo.width, logo.height], [23, 23]);
        logo.size = 84;
        compare([logo.width, logo.height], [84, 84]);
    }
}
