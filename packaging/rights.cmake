# No licence has been chosen yet. Package, man pages and software catalogues take it from here.
set(KAVR6_OWNER "Velmar Drives, Inc.")
# Without a comma, which would part two addresses.
set(KAVR6_CONTACT "Velmar Drives <support@velmardrives.example>")
set(KAVR6_COPYRIGHT "2026 ${KAVR6_OWNER}")
set(KAVR6_RIGHTS "All rights reserved.")
# The same in the identifiers that software catalogues know.
set(KAVR6_RIGHTS_ID "LicenseRef-proprietary")
